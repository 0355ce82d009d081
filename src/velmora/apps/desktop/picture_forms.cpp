#include "velmora/apps/desktop/picture_forms.h"

#include <optional>
#include <utility>

#include "velmora/adapters/host/delivery_note_form.h"
#include "velmora/adapters/host/work_order_form.h"
#include "velmora/data/product_types.h"
#include "velmora/labour/frm_mano_obra.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/reference/frm_eng_val.h"
#include "velmora/reference/frm_materias.h"
#include "velmora/reference/frm_pdm_val.h"
#include "velmora/services/frm_doc.h"
#include "velmora/services/frm_hcomp.h"
#include "velmora/tracking/frm_seguimiento.h"

namespace velmora::desktop {

namespace {

std::optional<std::int32_t> latestOfType(sql::Connection& connection, int type) {
    const sql::Recordset found = connection.execute(
        "SELECT top 1 DPI_Id FROM DPI where DPI_Tipo=" + runtime::CStr(std::int64_t{type}) + " order by DPI_Id desc");
    return found.eof() ? std::nullopt : std::optional(found[0].toLong());
}

/// Enters a piece of a type that no stored proposal has yet.
void enterPiece(proposal::frmBercialPiñones& form, int type) {
    auto& f = form.fields();
    f.cboTipoPre.setListIndex(type);
    const std::vector<std::pair<screen::TextBox*, const char*>> entries{
        {&f.Text1(0), "19,05"}, {&f.Text1(1), "21"},    {&f.Text1(8), "11,68"}, {&f.Text1(2), "12,07"},
        {&f.Text1(19), "4"},    {&f.Text1(22), "40"},   {&f.Text1(24), "1000"}, {&f.Text1(25), "40"},
        {&f.txtPesu(8), "38"},  {&f.txtPesu(11), "12"},
    };
    for (const auto& [box, text] : entries) {
        if (form.moveFocus(*box)) {
            box->setText(text);
        }
    }
    form.moveFocus(f.txtPesu(0));
}

std::unique_ptr<screen::Form> mainForm(session::Session& session, platform::Desk& desk, int type) {
    auto form = std::make_unique<proposal::frmBercialPiñones>(session, desk);
    if (const auto id = latestOfType(session.Connection(), type)) {
        form->msCargarPresupuesto(*id, true);
    } else {
        enterPiece(*form, type);
    }
    return form;
}

/// The labour of the newest proposal that has labour lines.
std::unique_ptr<screen::Form> labourForm(session::Session& session, platform::Desk& desk) {
    auto form = std::make_unique<labour::frmManoObra>(session, desk);
    const sql::Recordset newest = session.Connection().execute("SELECT max(MoDpi_Dpi) as nIdDpi FROM MoDpi");
    form->nIdDpi = newest[0].isNull() ? 0 : newest[0].toLong();
    form->bModificable = true;
    form->msCargarLineas();
    return form;
}

/// All proposals, with the first one as the current row.
std::unique_ptr<screen::Form> trackingForm(session::Session& session, platform::Desk& desk) {
    auto form = std::make_unique<tracking::frmSeguimiento>(session, desk);
    form->fields().cboFiltroHistorico.setListIndex(tracking::allStates);
    form->fields().cmdfiltro.onClick();
    return form;
}

/// The newest order that has measures of a sprocket, both materials and a route.
std::unique_ptr<screen::Form> workOrderForm(session::Session& session) {
    auto form = std::make_unique<host::WorkOrderForm>(session.Connection());
    const sql::Recordset newest = session.Connection().execute(
        "SELECT max(ORDEN_NUM) as Orden FROM ORDEN inner join OrdPiñones on Opi_OrdId = ORDEN_ID where Opi_PesoCub > "
        "0");
    form->load(newest["Orden"].isNull() ? 0 : newest["Orden"].toLong());
    return form;
}

/// The newest delivery note.
std::unique_ptr<screen::Form> deliveryNoteForm(session::Session& session) {
    auto form = std::make_unique<host::DeliveryNoteForm>(session);
    const sql::Recordset newest = session.Connection().execute("SELECT max(CAC_ID) as Albaran FROM CAC");
    form->load(newest["Albaran"].isNull() ? 0 : newest["Albaran"].toLong());
    return form;
}

/// The list of the gears of module 2.
std::unique_ptr<screen::Form> gearForm(session::Session& session, platform::Desk& desk) {
    auto form = std::make_unique<reference::frmENGVal>(session, desk);
    auto& f = form->fields();
    const std::vector<std::pair<int, const char*>> entries{
        {reference::gearModule, "2"}, {reference::gearTeeth, "20"}, {reference::gearModule, "2"}};
    for (const auto& [field, text] : entries) {
        form->moveFocus(f.Text1(field));
        f.Text1(field).setText(text);
    }
    form->moveFocus(f.dbgRs);
    return form;
}

/// The last purchases of a tube, whose lots have the most measures.
std::unique_ptr<screen::Form> pricesForm(session::Session& session, platform::Desk& desk) {
    auto form = std::make_unique<services::frmHcomp>(session, desk);
    const sql::Recordset tube = session.Connection().execute("SELECT max(ART_ID) as Tubo FROM ART where ART_For = 6");
    form->msArticulo(tube["Tubo"].isNull() ? 0 : tube["Tubo"].toLong());
    form->msCargar();
    return form;
}

/// The documents of the newest proposal; a few sample names when it has none.
std::unique_ptr<screen::Form> documentsForm(session::Session& session, platform::Desk& desk) {
    auto form = std::make_unique<services::frmDoc>(session, desk);
    const sql::Recordset newest = session.Connection().execute("SELECT max(DPI_Id) as nIdDpi FROM DPI");
    form->nIdExp = newest["nIdDpi"].isNull() ? 0 : newest["nIdDpi"].toLong();
    form->nIdAct = services::actOfProposals;
    form->msCargarDocumentos();
    if (form->dbgPlanos.rowCount() == 0) {
        form->dbgPlanos.bind(sql::Recordset(sql::rowsInMemory(
            {{"dex_id"}, {"dex_fic"}},
            {{3, "DOC202601151007.pdf"}, {2, "Pedido PC-2122.pdf"}, {1, "Plano del cubo, revisión 2.dwg"}})));
    }
    return form;
}

}  // namespace

std::vector<WindowPicture> windowPictures(session::Session& session, platform::Desk& desk) {
    std::vector<WindowPicture> pictures;
    for (const data::ProductType& type : data::productTypes) {
        const std::string number = runtime::Format(type.number, "000");
        pictures.push_back({"propuesta_tipo_" + number.substr(1),
                            [&session, &desk, n = type.number] { return mainForm(session, desk, n); }});
    }
    pictures.push_back({"mano_de_obra", [&session, &desk] { return labourForm(session, desk); }});
    pictures.push_back({"seguimiento", [&session, &desk] { return trackingForm(session, desk); }});
    pictures.push_back({"orden_de_trabajo", [&session] { return workOrderForm(session); }});
    pictures.push_back({"precios_de_compra", [&session, &desk] { return pricesForm(session, desk); }});
    pictures.push_back({"documentos", [&session, &desk] { return documentsForm(session, desk); }});
    pictures.push_back({"albaran", [&session] { return deliveryNoteForm(session); }});
    pictures.push_back(
        {"materiales", [&session, &desk] { return std::make_unique<reference::frmMaterias>(session, desk); }});
    pictures.push_back(
        {"pinones_dobles", [&session, &desk] { return std::make_unique<reference::frmPDMVal>(session, desk); }});
    pictures.push_back({"engranajes", [&session, &desk] { return gearForm(session, desk); }});
    return pictures;
}

}  // namespace velmora::desktop
