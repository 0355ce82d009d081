#include "velmora/proposal/form_status.h"

#include <array>
#include <utility>

#include "velmora/platform/screen/places.h"
#include "velmora/platform/session/deed.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

using estimate::TextBox;
using screen::Standing;

namespace {

constexpr const char* missingPrice = "No hay precio para el material elegido";

struct PricedMaterial {
    estimate::ComboBox& list;
    TextBox& price;
};

}  // namespace

FormStatus::FormStatus(estimate::FieldMap& fields, FormControls& controls, Draft& draft, const system::Clock& clock,
                       std::function<bool()> isConsultation)
    : f_(fields), controls_(controls), draft_(draft), clock_(clock), isConsultation_(std::move(isConsultation)) {
    f_.form.status().setStateSource([this] { return state(); });
}

// Chosen C-403: a proposal that is shown without "Activar Cambios" is read-only; an accepted one is told as accepted.
screen::RecordState FormStatus::state() const {
    if (isConsultation_()) {
        return {.standing = Standing::readOnly};
    }
    const bool unsaved = draft_.unsaved().has_value();
    if (f_.proposal.isAccepted()) {
        return {.standing = Standing::accepted, .unsaved = unsaved};
    }
    if (!f_.txtPesu(money::customerCode).enabled()) {
        return {.standing = Standing::readOnly};
    }
    return {.standing = f_.proposal.isNew() ? Standing::fresh : Standing::pending, .unsaved = unsaved};
}

void FormStatus::tellDeedOf(const std::string& number, std::string_view participle) const {
    f_.form.status().tellDeed(session::deedNow("Propuesta " + number + " " + std::string(participle), clock_));
}

std::string FormStatus::reason() const {
    if (isConsultation_()) {
        return "la ventana es solo de consulta";
    }
    if (f_.proposal.isAccepted()) {
        return "la propuesta está aceptada";
    }
    if (!f_.txtPesu(money::customerCode).enabled()) {
        return "la propuesta es de solo lectura (Activar Cambios)";
    }
    return "la propuesta aún no está grabada";
}

void FormStatus::tellRefusal(std::string_view action) const {
    f_.form.status().tellNote(std::string(action) + ": " + reason());
}

void FormStatus::tellMissingToothing() const {
    constexpr std::array needed{std::pair{measure::teeth, "Z"}, std::pair{measure::pitch, "Paso"}};
    for (const auto& [index, name] : needed) {
        const TextBox& box = f_.Text1(index);
        if (screen::isSeen(box) && estimate::numberOrZero(box) == 0) {
            f_.form.status().tellNote(std::string(name) + " es 0: las medidas no se calculan");
            return;
        }
    }
}

void FormStatus::tellEmptyHistory() const {
    if (controls_.dbgDPI.rowCount() == 0) {
        f_.form.status().tellNote("El histórico no tiene propuestas con este dentado");
    }
}

void FormStatus::followPrices() const {
    for (const PricedMaterial& material : {PricedMaterial{f_.cboMatDisco, f_.txtPesu(money::discPrice)},
                                           PricedMaterial{f_.cboMatCubo, f_.txtPesu(money::hubPrice)},
                                           PricedMaterial{f_.cboMatCre, f_.txtPesu(money::barPrice)}}) {
        // A piece of one stock has no hub to be priced: its frame is disabled then.
        const bool isUsed = &material.list != &f_.cboMatCubo || f_.fraCubo.enabled();
        const bool missing = isUsed && material.list.listIndex() >= 0 && estimate::numberOrZero(material.price) == 0;
        material.list.setWarning(missing ? missingPrice : "");
        material.price.setWarning(missing ? missingPrice : "");
    }
}

void writeHints(estimate::FieldMap& f, FormControls& c) {
    const auto set = [](screen::Control& control, std::string_view text) { control.setHint(text); };
    set(f.txtPesu(money::customerCode), "Código del cliente; F2 lo busca por su nombre");
    set(f.txtPesu(money::customerName), "Nombre del cliente; se escribe a mano si no tiene código");
    set(f.txtPesu(money::customerReference), "Referencia o número de plano del cliente");
    set(f.cboTipoPre, "Tipo de pieza; las flechas o la primera letra lo eligen");
    set(f.cboDobles, "Cadena de la pieza");
    set(f.Text1(measure::pitch), "Paso de la cadena, en mm");
    set(f.Text1(measure::teeth), "Número de dientes");
    set(f.Text1(measure::chainWidth), "Ancho interior de la cadena, en mm");
    set(f.Text1(measure::roller), "Diámetro del rodillo, en mm; al salir se busca en el histórico");
    set(f.Text1(measure::rim), "Ancho de la llanta, en mm");
    set(f.Text1(measure::hubWidth), "Ancho del cubo, en mm");
    set(f.Text1(measure::totalWidth), "Ancho total de la pieza, en mm");
    set(f.Text1(measure::hubDiameter), "Diámetro del cubo, en mm");
    set(f.Text1(measure::bore), "Diámetro del eje, en mm");
    set(f.Text1(measure::keyway), "Ancho del chavetero, en mm enteros; 0 sin chavetero");
    set(f.Text1(measure::setScrews), "Número de prisioneros");
    set(f.Text1(measure::gap), "Ancho del hueco entre llantas, en mm");
    set(f.Text1(measure::secondHubWidth), "Ancho del cubo B, en mm");
    set(f.Text1(measure::secondHubDiameter), "Diámetro del cubo B, en mm");
    set(f.Text4(cut::discInner), "Diámetro interior del tubo del disco, en mm");
    set(f.Text4(cut::hubInner), "Diámetro interior del tubo del cubo, en mm");
    set(f.chkAcopla, "Espacio la marca: la pieza es de un acoplamiento");
    set(f.chkFormulas, "Espacio la marca: cada peso por la fórmula de su artículo; sin ella, todos como redondos");
    set(f.txtObservaciones, "Observaciones para el taller");
    set(f.txtExtra, "Texto libre");
    set(f.txtCPro, "Proveedor al que se ha consultado");
    set(f.Text1(measure::rackModule), "Módulo de la cremallera, en mm");
    set(f.Text1(measure::rackHeight), "Altura total, en mm");
    set(f.Text1(measure::rackLength), "Longitud, en mm");
    set(f.Text1(measure::rackWidth), "Grosor, en mm");
    set(f.cboHerramienta, "Herramienta con que se hace el eje");
    for (estimate::ComboBox* list : {&f.cboMatDisco, &f.cboMatCubo, &f.cboMatCre}) {
        set(*list, "Material; al elegirlo se toman sus precios");
    }
    for (const int price : {money::discPrice, money::hubPrice, money::barPrice}) {
        set(f.txtPesu(price), "Precio de venta del material, en €/kg");
    }
    set(f.txtPesu(money::pieces), "Número de piezas; F5 graba la propuesta");
    set(f.txtPesu(money::labour), "Mano de obra, en € por pieza; F1 la calcula de sus líneas");
    set(f.txtPesu(money::subcontracted), "Trabajos de fuera, en € por pieza");
    set(f.txtPesu(money::sundries), "Otros costes, en € por pieza");
    set(f.txtPesu(money::sawCharge), "Cargo fijo de la sierra, en €");
    set(f.cboFiltroHistorico, "Qué propuestas muestra el histórico");
    set(c.dbgDPI, "Propuestas parecidas; Enter o espacio en el número carga la propuesta");
}

}  // namespace velmora::proposal
