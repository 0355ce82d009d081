#include "velmora/platform/toolkit/keys_form.h"

#include <utility>
#include <vector>

#include "velmora/platform/sql/recordset.h"
#include "velmora/platform/toolkit/key_sheet.h"

namespace velmora::toolkit {

KeysForm::KeysForm(const screen::Form& shown) : Form("frmTeclas") {
    namespace lay = screen::layout;
    setCaption("Teclas: " + shown.caption());
    dbgTeclas_.setAccessibleName("Teclas");
    dbgTeclas_.setColumns(
        {{.field = 0, .caption = "Tecla", .width = 3000}, {.field = 1, .caption = "Qué hace", .width = 5400}});
    std::vector<sql::Row> rows;
    for (const KeyLine& line : keyLines(shown)) {
        rows.push_back({line.keys, line.words});
    }
    dbgTeclas_.bind(sql::Recordset(sql::rowsInMemory({{"Tecla"}, {"Hace"}}, std::move(rows))));
    cmdSalir_.setCaption("&Salir (ESC)");
    cmdSalir_.onClick = [this] { unload(); };
    setLayout(lay::column(lay::plain(dbgTeclas_).tall(20).stretched(), lay::row(lay::space(), lay::plain(cmdSalir_))));
    setTabOrder({&dbgTeclas_, &cmdSalir_});
    onKeyDown = [this](screen::KeyDown& key) { passKeysOfSideWindow(key); };
}

}  // namespace velmora::toolkit
