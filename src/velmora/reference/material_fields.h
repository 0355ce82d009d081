#pragma once
// The controls and the state of the materials' form, shared by its classes.

#include <string>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/value.h"

namespace velmora::reference {

/// Contents of the fields of Text1 in the materials' form.
enum MaterialField : int {
    materialId = 0,           ///< PARDPI_ID, or "NUEVO" while a material is added
    materialName = 1,         ///< PARDPI_NOM
    materialArticleCode = 2,  ///< ART_COD; the tag holds ART_ID
    materialArticle = 3,      ///< ART_DES, display only
    materialPrinted = 4,      ///< PARDPI_MATP
};

/// A column's text, empty for null.
inline std::string textOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

struct MaterialFields {
    explicit MaterialFields(screen::Form& owner) : form(owner) {}

    screen::Form& form;

    screen::ControlArray<screen::TextBox> Text1{form, "Text1", {{0, 4}}};
    screen::CheckBox Check1{form, "Check1"};  ///< iron
    screen::CheckBox Check2{form, "Check2"};  ///< disc
    // Kept K-165: the box of the flange can be ticked but is neither stored nor shown again; a hub's material is simply
    // one without "Disco", and the table has no column for it.
    screen::CheckBox Check3{form, "Check3"};
    screen::CheckBox Check4{form, "Check4"};  ///< rack
    screen::Button cmdBuscarArticulo{form, "cmdBuscarArticulo"};
    screen::DataGrid dbgFco{form, "dbgFco"};
    screen::Button cmdNuevo{form, "cmdNuevo"};
    screen::Button cmdCancelar{form, "cmdCancelar"};
    screen::Button cmdGuardar{form, "cmdGuardar"};
    screen::Button cmdBorrar{form, "cmdBorrar"};
    screen::Button cmdSalir{form, "cmdSalir"};
    screen::Frame fraMaterial{form, "fraMaterial"};  ///< groups the fields on the screen

    bool bNuevo = false;     ///< a material is being added
    bool bPintando = false;  ///< the program sets the boxes, so their clicks are not the user's

    const std::string& articleId() const { return Text1(materialArticleCode).tag(); }

    /// Clears name, article code and article, and the chosen article. Differs D-160: the article's key is cleared with
    /// its code; a following save asks for an article instead of storing a material without a name.
    void clearEntry() {
        for (const int field : {materialName, materialArticleCode, materialArticle}) {
            Text1(field).setText("");
        }
        Text1(materialArticleCode).setTag("");
    }

    /// Ends the adding of a material.
    void browse() {
        bNuevo = false;
        Text1(materialId).setLocked(false);
        Text1(materialId).setText("0");
        clearEntry();
    }
};

}  // namespace velmora::reference
