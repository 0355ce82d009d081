#pragma once
// The article of a material: found by its code or in a search window, and checked for racks.

#include <string>

#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/reference/material_fields.h"

namespace velmora::reference {

class ArticleOfMaterial {
  public:
    ArticleOfMaterial(MaterialFields& fields, session::Session& session, screen::Screen& screen,
                      session::KestraUtil& util)
        : f_(fields), session_(session), screen_(screen), oUtil_(util) {}

    /// Finds the article by the typed code (`bCodigo`) or in the search window. Errors: the database's.
    void msBuscarArticuloMaterial(bool bCodigo);

    /// "Cremallera" was clicked: only an article of formula 1 is accepted for a rack. Errors: the database's.
    void Check4_Click();
    /// "Disco" was clicked: it and "Cremallera" exclude each other.
    void Check2_Click();

  private:
    std::string lookUpCode();
    void takeOver(const std::string& row);
    void refuseRack(const std::string& message);
    void clear(screen::CheckBox& box);

    MaterialFields& f_;
    session::Session& session_;
    screen::Screen& screen_;
    session::KestraUtil& oUtil_;
};

}  // namespace velmora::reference
