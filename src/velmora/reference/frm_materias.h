#pragma once
// The list of materials that a proposal can choose from: each assigns a name and its uses to an article.

#include "velmora/platform/desk.h"
#include "velmora/platform/session/kestra_util.h"
#include "velmora/platform/session/session.h"
#include "velmora/reference/article_of_material.h"
#include "velmora/reference/material_list.h"
#include "velmora/reference/material_saving.h"

namespace velmora::reference {

/// Shown modally. Errors of the constructor: the database's.
class frmMaterias : public screen::Form {
  public:
    frmMaterias(session::Session& session, platform::Desk& desk);

    void msCargarParametros() { list_.msCargarParametros(); }
    void msBuscarArticuloMaterial(bool bCodigo) { article_.msBuscarArticuloMaterial(bCodigo); }

    MaterialFields& fields() { return f_; }

  private:
    void arrange();
    void wire();
    void Form_KeyDown(screen::KeyDown& key);
    void Text1_LostFocus(int Index);
    void newMaterial();

    MaterialFields f_{*this};
    session::KestraUtil oUtil_;
    MaterialList list_;
    ArticleOfMaterial article_;
    MaterialSaving saving_;
};

}  // namespace velmora::reference
