#pragma once
// Writes a material to PARDPI or deletes it. A material used by a proposal is neither changed nor deleted; one that
// differs from what is displayed only after a confirmation.

#include <optional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"
#include "velmora/platform/system/system.h"
#include "velmora/reference/material_fields.h"
#include "velmora/reference/material_list.h"

namespace velmora::reference {

class MaterialSaving {
  public:
    MaterialSaving(MaterialFields& fields, MaterialList& list, session::Session& session, screen::Screen& screen,
                   const system::Clock& clock)
        : f_(fields), list_(list), session_(session), screen_(screen), clock_(clock) {}

    /// Writes the typed values: as a new material while one is being added, otherwise over the current material. A
    /// refusal is shown and leaves the table and the fields as they were.
    void save();

    /// Deletes the material with the displayed number, after a confirmation. Errors: the database's.
    void remove();

  private:
    /// The list read after the insert; nullopt when nothing was written and the user has been informed.
    std::optional<sql::Recordset> insert();
    std::optional<sql::Recordset> update();
    bool isInUse(const std::string& id);
    bool isUsedBeforeDeleting(const std::string& number);
    bool mayDelete(const std::string& number);
    void removeCurrent(const std::string& number);
    void write(const std::string& id);
    void addFields(session::FieldList& campos) const;
    void tellFailure(const runtime::RuntimeError& error);

    MaterialFields& f_;
    MaterialList& list_;
    session::Session& session_;
    screen::Screen& screen_;
    const system::Clock& clock_;
};

}  // namespace velmora::reference
