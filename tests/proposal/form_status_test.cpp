#include "velmora/proposal/form_status.h"

#include <gtest/gtest.h>

#include "velmora/platform/toolkit/status_text.h"

#include "main_form.h"

namespace velmora::proposal {
namespace {

using support::MainForm;

class FormStatusTest : public MainForm {
  protected:
    toolkit::StatusText status() { return toolkit::statusTextOf(form()); }
    void key(screen::Key pressed) {
        form().status().clearNote();
        form().keyDown(pressed);
    }
    void store() {
        enter(fields().txtPesu(money::customerCode), "1001");
        enterLargeSprocket();
        enter(fields().txtPesu(money::pieces), "10");
        key(screen::Key::f5);
    }
};

TEST_F(FormStatusTest, AStateIsToldFromTheEmptyFormToTheStoredProposal) {
    EXPECT_EQ(status().state, "Nueva");
    enter(fields().txtPesu(money::customerReference), "PL-77");
    EXPECT_EQ(status().state, "Nueva, sin grabar");
    store();
    EXPECT_EQ(status().state, "Pendiente");
    EXPECT_EQ(status().deed, "Propuesta 1 grabada a las 10:00");
    enter(fields().txtPesu(money::customerReference), "PL-78");
    EXPECT_EQ(status().state, "Pendiente, sin grabar");
}

TEST_F(FormStatusTest, AKeyWithoutEffectTellsWhy) {
    key(screen::Key::f6);
    EXPECT_EQ(status().message, "No se puede duplicar: la propuesta aún no está grabada");
    key(screen::Key::f9);
    EXPECT_EQ(status().message, "No se puede eliminar: la propuesta aún no está grabada");
    key(screen::Key::f4);
    EXPECT_EQ(status().message, "El histórico no tiene propuestas con este dentado");
}

TEST_F(FormStatusTest, AnAcceptedProposalAndAConsultationRefuseWithTheirReason) {
    store();
    execute("update DPI set DPI_FAcepta='20260115', DPI_Orden=7");
    form().msCargarPresupuesto(1, true);
    EXPECT_EQ(status().state, "Aceptada");
    key(screen::Key::f5);
    EXPECT_EQ(status().message, "No se puede grabar: la propuesta está aceptada");
    form().bConsulta = true;
    EXPECT_EQ(status().state, "Solo lectura");
    key(screen::Key::f5);
    EXPECT_EQ(status().message, "No se puede grabar: la ventana es solo de consulta");
}

TEST_F(FormStatusTest, AProposalShownWithoutChangesIsReadOnly) {
    store();
    form().msCargarPresupuesto(1, false);
    EXPECT_EQ(status().state, "Solo lectura");
    EXPECT_EQ(status().deed, "Propuesta 1 cargada a las 10:00");
    key(screen::Key::f5);
    EXPECT_EQ(status().message, "No se puede grabar: la propuesta es de solo lectura (Activar Cambios)");
}

TEST_F(FormStatusTest, AMissingToothIsToldWhenTheToothingIsLeft) {
    enter(fields().Text1(measure::pitch), "12,7");
    enter(fields().Text1(measure::roller), "8,51");
    leave();
    EXPECT_EQ(form().status().note(), "Z es 0: las medidas no se calculan");
}

TEST_F(FormStatusTest, AMaterialWithoutPriceIsMarkedUntilThePriceIsTyped) {
    EXPECT_EQ(fields().cboMatDisco.warning(), "");
    fields().txtPesu(money::discPrice).setText("0,00");
    EXPECT_EQ(fields().cboMatDisco.warning(), "No hay precio para el material elegido");
    EXPECT_EQ(fields().txtPesu(money::discPrice).warning(), "No hay precio para el material elegido");
    EXPECT_EQ(fields().cboMatCubo.warning(), "");
    fields().txtPesu(money::discPrice).setText("1,4");
    EXPECT_EQ(fields().cboMatDisco.warning(), "");
}

TEST_F(FormStatusTest, AHubThatIsNotPricedHasNoWarning) {
    fields().fraCubo.setEnabled(false);
    fields().txtPesu(money::hubPrice).setText("0");
    EXPECT_EQ(fields().cboMatCubo.warning(), "");
    EXPECT_EQ(fields().txtPesu(money::hubPrice).warning(), "");
    fields().fraCubo.setEnabled(true);
    fields().txtPesu(money::hubPrice).setText("0,00");
    EXPECT_EQ(fields().cboMatCubo.warning(), "No hay precio para el material elegido");
}

TEST_F(FormStatusTest, EveryFieldOfTheWayOfEnterHasAHint) {
    for (const screen::Control* stop : form().tabOrder()) {
        const auto* box = dynamic_cast<const estimate::TextBox*>(stop);
        const bool entered = box != nullptr && box->tabStop() && stop->canTakeFocus() && box->name() != "txtExtra" &&
                             box->name() != "txtCPro" && box->name() != "txtObservaciones";
        EXPECT_TRUE(!entered || !stop->hint().empty()) << stop->fullName();
    }
}

}  // namespace
}  // namespace velmora::proposal
