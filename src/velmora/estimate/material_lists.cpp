#include "velmora/estimate/material_lists.h"

#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

namespace {
constexpr const char* discs = "SELECT * FROM PARDPI where PARDPI_DISCO=1";
constexpr const char* hubs = "SELECT * FROM PARDPI where PARDPI_DISCO=0";
constexpr const char* racks = "SELECT * FROM PARDPI where PARDPI_CRE=1";
}  // namespace

void MaterialLists::msCargarMaterialesConCubo() {
    load(discs);
}

void MaterialLists::msCargarMaterialesSinCubo() {
    load(hubs);
}

void MaterialLists::load(const char* discStatement) {
    fill(f_.cboMatDisco, discStatement);
    fill(f_.cboMatCubo, hubs);
    if (f_.cboMatDisco.listCount() > 0) {
        f_.rsMatDisco = row(f_.cboMatDisco);
    }
    if (f_.cboMatCubo.listCount() > 0) {
        f_.rsMatCubo = row(f_.cboMatCubo);
    }
}

void MaterialLists::msCargarMaterialesCre() {
    fill(f_.cboMatCre, racks);
    if (f_.cboMatCre.listCount() > 0 && runtime::IsNumeric(entryKey(f_.cboMatCre))) {
        f_.rsMatCre = row(f_.cboMatCre);
    }
}

void MaterialLists::fill(ComboBox& list, const char* statement) {
    const int kept = list.listIndex();
    // Read first: when the query fails, the existing list stays.
    sql::Recordset rows = session_.Connection().execute(statement);
    for (list.clear(); !rows.eof(); rows.moveNext()) {
        // Kept K-006: the key is read from the first three characters, so a number above 999 cannot be chosen. Required
        // as it is; it determines the stored key. Differs D-173: a material without a name is listed by its number;
        // otherwise its null would prevent the form from opening.
        const sql::Value& name = rows["PARDPI_Nom"];
        list.addItem(runtime::Format(rows["PARDPI_ID"].toDouble(), "000") + " - " +
                     (name.isNull() ? std::string() : name.toText()));
    }
    if (list.listCount() > 0) {
        // Chosen C-001: a list with entries but no index, or one that is now too short for it, selects its first entry.
        list.setListIndex(kept < 0 || kept >= list.listCount() ? 0 : kept);
    }
}

sql::Recordset MaterialLists::row(const ComboBox& list) const {
    return session_.Connection().execute(
        "SELECT PARDPI.*,"
        "ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID "
        "WHERE PARDPI_ID= " +
        runtime::CStr(std::int64_t{runtime::CInt(entryKey(list))}));
}

void MaterialLists::choose(ComboBox& list, sql::ListenedRecordset& rows) {
    rows = row(list);
    if (!rows->eof()) {
        screen_.processEvents();
    }
}

void MaterialLists::cboMatDisco_Click() {
    choose(f_.cboMatDisco, f_.rsMatDisco);
}

void MaterialLists::cboMatCubo_Click() {
    choose(f_.cboMatCubo, f_.rsMatCubo);
}

void MaterialLists::cboMatCre_Click() {
    choose(f_.cboMatCre, f_.rsMatCre);
}

}  // namespace velmora::estimate
