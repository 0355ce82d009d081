#include "velmora/reference/material_list.h"

#include <vector>

#include "velmora/platform/runtime/numbers.h"

namespace velmora::reference {

namespace {

/// By position in PARDPI, whose own columns come first; the last three are the article's.
std::vector<screen::GridColumn> listColumns() {
    return {
        {.field = 0, .caption = "Codigo", .width = 900, .right = true},
        {.field = 1, .caption = "Descripcion", .width = 3000},
        {.field = 2, .caption = "PARDPI_ART", .visible = false},
        {.field = 3, .caption = "Hierro", .width = 800, .mask = "Yes/No"},
        {.field = 4, .caption = "Disco", .width = 800, .mask = "Yes/No"},
        {.field = 5, .caption = "Detalle Material", .width = 2600},
        {.field = 6, .caption = "PARDPI_CRE", .visible = false},
        {.field = 7, .caption = "Cod. Art.", .width = 1700},
        {.field = 8, .caption = "Articulo", .width = 3600},
        {.field = 9, .caption = "ART_ID", .visible = false},
    };
}

}  // namespace

MaterialList::MaterialList(MaterialFields& fields, session::Session& session) : f_(fields), session_(session) {
    rsAlm_.onMoveComplete = [this] {
        if (!rsAlm_->eof() && !rsAlm_->bof()) {
            msPintaCajas();
        }
    };
}

sql::Recordset MaterialList::open() {
    return session_.Connection().execute(
        "SELECT PARDPI.*,ART.ART_COD,ART.ART_DES,ART.ART_ID FROM PARDPI LEFT JOIN ART ON PARDPI_ART = ART_ID order by "
        "PARDPI_id ");
}

void MaterialList::show(sql::Recordset rows) {
    rsAlm_ = std::move(rows);
    f_.dbgFco.bind(*rsAlm_);
    f_.dbgFco.setColumns(listColumns());
}

void MaterialList::msPintaCajas() {
    const sql::Recordset& row = *rsAlm_;
    f_.bPintando = true;
    f_.Text1(materialId).setText(textOrNothing(row["PARDPI_ID"]));
    f_.Text1(materialName).setText(textOrNothing(row["PARDPI_NOM"]));
    f_.Text1(materialArticleCode).setText(textOrNothing(row["ART_COD"]));
    f_.Text1(materialArticleCode).setTag(textOrNothing(row["ART_ID"]));
    f_.Text1(materialArticle).setText(textOrNothing(row["ART_DES"]));
    f_.Text1(materialPrinted).setText(textOrNothing(row["PARDPI_MATP"]));
    f_.Check1.setChecked(row["PARDPI_HIERRO"].toBool());
    // A rack's material is never shown as a disc's, whatever the row holds.
    const bool rack = row["PARDPI_CRE"].toBool();
    f_.Check2.setChecked(row["PARDPI_DISCO"].toBool() && !rack);
    f_.Check4.setChecked(rack);
    f_.bPintando = false;
}

void MaterialList::find(const std::string& number) {
    if (!rsAlm_->isOpen() || !rsAlm_->hasRows()) {
        return;
    }
    // Chosen C-164: the search runs on a clone, so that an unknown number leaves the cursor where it was.
    sql::Recordset seeker = rsAlm_->clone();
    seeker.moveFirst();
    seeker.find("PARDPI_ID = " + runtime::shortest(runtime::CDbl(number)));
    if (const auto found = seeker.position()) {
        // Kept K-166: finding the material that is already shown displays it again, which discards what was typed in
        // the other fields. Required as it is; it determines what a save stores.
        rsAlm_->moveTo(*found);
    }
}

session::ShownRow MaterialList::currentRow() const {
    return {*rsAlm_, "SELECT PARDPI.* FROM PARDPI WHERE PARDPI_Id = " + currentId()};
}

bool MaterialList::isCurrent(std::int32_t number) const {
    return rsAlm_->isOpen() && rsAlm_->position() && (*rsAlm_)["PARDPI_ID"].toLong() == number;
}

void MaterialList::goToLast() {
    if (!rsAlm_->eof()) {
        rsAlm_->moveLast();
    }
}

}  // namespace velmora::reference
