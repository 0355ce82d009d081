#include "velmora/proposal/customer_search.h"

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

namespace {

/// One of the two names by which a customer can be searched.
struct NameSearch {
    const char* statement;
    const char* column;
    const char* caption;
    const char* title;
};

constexpr NameSearch fiscal{
    .statement = "Select CLI_ID,CLI_COD,CLI_NOM FROM CLI",
    .column = "CLI_NOM",
    .caption = "Nombre FISCAL del Cliente",
    .title = "Buscar clientes por nombre FISCAL",
};
constexpr NameSearch commercial{
    .statement = "Select CLI_ID,CLI_COD,CLI_COMER FROM CLI",
    .column = "CLI_COMER",
    .caption = "Nombre COMERCIAL del Cliente",
    .title = "Buscar clientes por nombre COMERCIAL",
};
constexpr int shortestAnswer = 3;
constexpr int decimals = 2;

/// Differs D-067: the number that a save stores for the text, in plain form, instead of the text itself: "1.000" is
/// stored as 1000 and must not show the name of customer 1.
std::string storedCode(const std::string& text) {
    const double number = runtime::Redondear(runtime::CDbl(text), decimals);
    return runtime::shortest(number == 0 ? 0.0 : number);
}

}  // namespace

void CustomerSearch::msValidarCliente() {
    estimate::TextBox& code = f_.txtPesu(money::customerCode);
    code.setText(runtime::Trim(code.text()));
    if (code.text().empty() || !runtime::IsNumeric(code.text())) {
        return;
    }
    const sql::Recordset row =
        session_.Connection().execute("Select CLI_NOM,CLI_ID from cli where CLI_COD=" + storedCode(code.text()));
    if (row.hasRows()) {
        if (!row["CLI_NOM"].isNull()) {
            f_.txtPesu(money::customerName).setText(row["CLI_NOM"].toText());
            code.setTag(row["CLI_ID"].toText());
        } else if (code.text() != knownCode_) {
            // Differs D-174: the name of a customer without one is set to empty, so that the previous customer's name
            // is not stored with this code. A name typed, or found by the commercial name, is kept.
            f_.txtPesu(money::customerName).setText("");
            code.setTag(row["CLI_ID"].toText());
        }
        knownCode_ = code.text();
        return;
    }
    code.setTag("");
    f_.form.setTag("E");
    msBuscarCliente();
}

void CustomerSearch::msBuscarCliente() {
    const screen::Answer answer = screen_.show({.text = "Desea Burcar por el nombre Fiscal ?.\r\n"
                                                        "Si contesta NO, la busqueda será por Nombre Comercial",
                                                .icon = screen::Icon::information,
                                                .buttons = screen::Buttons::yesNoCancel});
    if (answer == screen::Answer::cancel) {
        return;
    }
    const NameSearch& by = answer == screen::Answer::yes ? fiscal : commercial;
    takeOver(oUtil_.Buscar(by.statement, by.column, "Codigo", by.caption, by.title, 600, 6000, false));
}

void CustomerSearch::takeOver(const std::string& row) {
    estimate::TextBox& code = f_.txtPesu(money::customerCode);
    if (runtime::Len(row) < shortestAnswer) {
        code.setTag("");
        code.setText("");
        f_.txtPesu(money::customerName).setText("");
        return;
    }
    // A result with fewer columns leaves the remaining fields as they were.
    const std::vector<std::string> parts = session::columnsOf(row);
    if (parts.size() > 1) {
        // Kept K-015: the tag is the code here and the customer's key after a look-up by code; nothing reads it.
        code.setText(parts[1]);
        code.setTag(parts[1]);
    }
    if (parts.size() > 2) {
        f_.txtPesu(money::customerName).setText(parts[2]);
    }
    knownCode_ = code.text();
}

}  // namespace velmora::proposal
