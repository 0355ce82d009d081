#include "velmora/shell/vmora.h"

#include <string>

#include "velmora/platform/runtime/errors.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/reference/frm_materias.h"
#include "velmora/shell/schema_upgrade.h"
#include "velmora/tracking/frm_seguimiento.h"

namespace velmora::shell {

std::shared_ptr<VMORA::Given> gVMORA;

namespace {

/// Error 91 when it is not set.
const std::shared_ptr<session::Session>& sessionOf(const VMORA::Given& given) {
    if (!given.MyBd) {
        runtime::raise(runtime::objectNotSet);
    }
    return given.MyBd;
}

/// The session of the instance created last, whichever instance was called and whether or not the last one still
/// exists. The operation shares it: its host may set another one meanwhile.
std::shared_ptr<session::Session> currentSession() {
    return sessionOf(*gVMORA);
}

}  // namespace

VMORA::VMORA(platform::Desk& desk) : desk_(desk) {
    gVMORA = given_;
}

void VMORA::MyBd(session::Session* session) {
    MyBd(std::shared_ptr<session::Session>(std::shared_ptr<void>(), session));
}

session::Session& VMORA::MyBd() const {
    return *sessionOf(*given_);
}

void VMORA::jShow() {
    const std::shared_ptr<session::Session> session = currentSession();
    FnActualizarBD(session->Connection(), desk_.screen);
    proposal::frmBercialPiñones form(*session, desk_);
    form.setTag("e");
    desk_.screen.showModal(form);
}

void VMORA::jShowParametros() {
    const std::shared_ptr<session::Session> session = currentSession();
    msActualizarPARDPI(session->Connection(), desk_.screen);
    reference::frmMaterias form(*session, desk_);
    form.setTag("e");
    desk_.screen.showModal(form);
}

void VMORA::jShowPropuesta(std::int32_t& nIdDpi) {
    if (nIdDpi <= 0) {
        return;
    }
    const std::shared_ptr<session::Session> session = currentSession();
    proposal::frmBercialPiñones form(*session, desk_);
    form.msCargarPresupuesto(nIdDpi, false);
    form.bConsulta = true;
    form.msCancelarBotones();
    form.setTag("e");
    desk_.screen.showModal(form);
}

void VMORA::jPrintPropuesta(std::int32_t&, bool&) {}

void VMORA::jShowSeguimiento() {
    const std::shared_ptr<session::Session> session = currentSession();
    msActualizarPARDPI(session->Connection(), desk_.screen);
    tracking::frmSeguimiento form(*session, desk_, gVMORA->listOrder);
    form.setTag("e");
    desk_.screen.showModal(form);
}

}  // namespace velmora::shell
