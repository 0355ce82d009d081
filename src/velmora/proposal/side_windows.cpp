#include "velmora/proposal/side_windows.h"

#include "velmora/services/frm_doc.h"
#include "velmora/services/frm_hcomp.h"

namespace velmora::proposal {

namespace {

std::string textOf(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

}  // namespace

SideWindows::Material SideWindows::material(int Index) const {
    switch (Index) {
        case 0:
            return {f_.cboMatDisco, f_.rsMatDisco};
        case 1:
            return {f_.cboMatCubo, f_.rsMatCubo};
        default:
            return {f_.cboMatCre, f_.rsMatCre};
    }
}

void SideWindows::cmdHPrecios_Click(int Index) {
    const Material chosen = material(Index);
    services::frmHcomp form(session_, desk_);
    if (chosen.rows->isOpen() && !chosen.rows->eof()) {
        const sql::Recordset& row = *chosen.rows;
        form.nFormula = row["art_for"].isNull() ? 0 : row["art_for"].toLong();
        form.txtFields(0).setText(textOf(row["art_cod"]));
        form.txtFields(1).setText(textOf(row["art_des"]));
        // Kept K-185: the first material counts as none, also when it was chosen, and its list of prices stays empty:
        // it is the entry that an untouched list shows.
        if (chosen.list.listIndex() >= 1) {
            form.msCargar();
        }
    }
    desk_.screen.showModal(form);
}

void SideWindows::cmdDoc_Click() {
    if (f_.proposal.isNew()) {
        return;
    }
    services::frmDoc form(session_, desk_);
    form.nIdExp = f_.proposal.key();
    form.nIdAct = services::actOfProposals;
    form.msCargarDocumentos();
    desk_.screen.showModal(form);
}

}  // namespace velmora::proposal
