#include "velmora/apps/script_stage/own_instance.h"

namespace velmora::script_stage {

OwnInstance::OwnInstance(platform::Desk& desk, session::Session& session) : vmora_(desk) {
    vmora_.MyBd(&session);
}

void OwnInstance::jShow() {
    vmora_.jShow();
}

void OwnInstance::jShowParametros() {
    vmora_.jShowParametros();
}

void OwnInstance::jShowPropuesta(std::int32_t& nIdDpi) {
    vmora_.jShowPropuesta(nIdDpi);
}

void OwnInstance::jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden) {
    vmora_.jPrintPropuesta(nIdDpi, bOrden);
}

void OwnInstance::jShowSeguimiento() {
    vmora_.jShowSeguimiento();
}

void OwnInstance::setExportReport(bool value) {
    vmora_.bExportReport(value);
}

bool OwnInstance::exportReport() {
    return vmora_.bExportReport();
}

}  // namespace velmora::script_stage
