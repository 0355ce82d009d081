#pragma once
// A material written to PARDPI, or deleted. One that a proposal uses is neither changed nor deleted, nor is one that is
// not as it is on show, unless the user means to.

#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/reference/material_fields.h"
#include "velmora/reference/material_list.h"

namespace velmora::reference {

class MaterialSaving {
  public:
    MaterialSaving(MaterialFields& fields, MaterialList& list, session::Session& session, screen::Screen& screen)
        : f_(fields), list_(list), session_(session), screen_(screen) {}

    /// Writes what is typed: as a new material while one is added, else over the material under the cursor. A refusal
    /// is told and leaves the table and the fields as they were.
    void save();

    /// Deletes the material of the number on show, once confirmed. Errors: the database's.
    void remove();

  private:
    /// The list read anew behind the write; none when nothing was written, which has been told.
    std::optional<sql::Recordset> insert();
    std::optional<sql::Recordset> update();
    bool isInUse(const std::string& id);
    bool isUsedBeforeDeleting(const std::string& number);
    bool mayDelete(const std::string& number);
    void removeCurrent(const std::string& number);
    void write(const std::string& id);
    void addFields();
    void tellFailure(const runtime::RuntimeError& error);

    MaterialFields& f_;
    MaterialList& list_;
    session::Session& session_;
    screen::Screen& screen_;
};

}  // namespace velmora::reference
