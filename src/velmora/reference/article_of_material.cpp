#include "velmora/reference/article_of_material.h"

#include <vector>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/reference/refusal.h"

namespace velmora::reference {

namespace {

constexpr const char* cancelled = "Acción Cancelada";
constexpr std::size_t shortestAnswer = 3;
constexpr double plateFormula = 1;

struct ArticleSearch {
    const char* statement;
    const char* column;
    const char* title;
};

constexpr ArticleSearch byCode{
    .statement =
        "Select ART_ID,ART_COD,ART_DES,(ART_COD + ' ' + ART_DES) as CodDes FROM ART where art_estado=0 "
        "order by ART_COD,art_des",
    .column = "CodDes",
    .title = "Buscar Articulos por Codigo",
};
constexpr ArticleSearch byName{
    .statement = "Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_estado=0 order by ART_DES",
    .column = "ART_DES",
    .title = "Buscar Articulos por Nombre",
};

}  // namespace

void ArticleOfMaterial::msBuscarArticuloMaterial(bool bCodigo) {
    if (bCodigo) {
        const std::string found = lookUpCode();
        if (!found.empty()) {
            takeOver(found);
            return;
        }
    }
    const screen::Answer answer =
        screen_.show({.text = std::string("Desea Burcar por Codigo de Articulo.") + lineBreak +
                              "Si contesta NO, la busqueda será por Nombre de articulo",
                      .icon = screen::Icon::question,
                      .buttons = screen::Buttons::yesNoCancel});
    if (answer == screen::Answer::cancel) {
        // Kept K-167: cancelling the search, like clearing the code, leaves the article chosen before: a save stores
        // its key, not the displayed code. Required as it is; it determines the stored article.
        return;
    }
    const ArticleSearch& search = answer == screen::Answer::yes ? byCode : byName;
    takeOver(oUtil_.Buscar(search.statement, search.column, "Articulo", "Codigo", search.title, 6000, 600, false));
}

// The article's fields joined as by a search window; empty when no article has the code. Kept K-168: an article that is
// out of use can be found by its code, while the search windows list only those in use. Required as it is; it
// determines the stored article.
std::string ArticleOfMaterial::lookUpCode() {
    // Differs D-161: an apostrophe in the code is escaped; otherwise it would end the literal and the statement would
    // fail.
    const std::string code = runtime::Replace(f_.Text1(materialArticleCode).text(), "'", "''");
    const sql::Recordset row = session_.Connection().execute(
        "Select ART_ID,ART_COD,ART_DES,('') as Blanco FROM ART where art_cod='" + code + "'");
    const sql::Row* first = row.peek(0);
    return first == nullptr ? std::string() : session::joinedRow(*first);
}

void ArticleOfMaterial::takeOver(const std::string& row) {
    screen::TextBox& code = f_.Text1(materialArticleCode);
    if (runtime::Len(row) < shortestAnswer) {
        code.setText("");
        code.setTag("");
        f_.Text1(materialArticle).setText("");
        return;
    }
    const std::vector<std::string> parts = session::columnsOf(row);
    code.setTag(parts.at(0));
    if (parts.size() > 1) {
        code.setText(parts[1]);
    }
    if (parts.size() > 2) {
        f_.Text1(materialArticle).setText(parts[2]);
    }
}

// Kept K-169: the article is also checked when the box is unticked, so the message for a rack of another formula
// appears both ways. The box ends unticked.
void ArticleOfMaterial::Check4_Click() {
    if (f_.bPintando) {
        return;
    }
    if (!runtime::IsNumeric(f_.articleId())) {
        clear(f_.Check4);
        return;
    }
    const sql::Recordset article =
        session_.Connection().execute("Select art_for from art where art_id =" + f_.articleId());
    if (!article.hasRows()) {
        refuseRack("Articulo Inexistente");
        return;
    }
    const sql::Value& formula = article["art_for"];
    if (formula.isNull() || formula.toDouble() != plateFormula) {
        refuseRack("Articulo indicado no adecuado. Formula nº " + textOrNothing(formula) + lineBreak +
                   "Solo están permitidos articulos con formula nº 1");
    } else if (f_.Check4.checked()) {
        clear(f_.Check2);
    }
}

void ArticleOfMaterial::Check2_Click() {
    if (!f_.bPintando && f_.Check2.checked()) {
        clear(f_.Check4);
    }
}

void ArticleOfMaterial::refuseRack(const std::string& message) {
    screen_.show({.text = message, .icon = screen::Icon::critical, .title = cancelled});
    clear(f_.Check4);
}

// A box that the program clears must not run its own check.
void ArticleOfMaterial::clear(screen::CheckBox& box) {
    f_.bPintando = true;
    box.setChecked(false);
    f_.bPintando = false;
}

}  // namespace velmora::reference
