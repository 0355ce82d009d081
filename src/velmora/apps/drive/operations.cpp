#include "operations.h"

#include <cstdint>
#include <string>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/shell/vmora.h"

namespace velmora::drive {

namespace {

using Arguments = script::Operations::Arguments;

void takesBetween(const Arguments& arguments, std::size_t least, std::size_t most) {
    if (arguments.size() < least || arguments.size() > most) {
        throw script::WrongScript("too few or too many values for the operation");
    }
}

std::int32_t number(const script::Argument& argument) {
    const auto value = script::wholeNumber(argument.text);
    if (!value) {
        throw script::WrongScript("no whole number: " + argument.text);
    }
    return *value;
}

bool onOff(const script::Argument& argument) {
    if (argument.text != "on" && argument.text != "off") {
        throw script::WrongScript("neither on nor off: " + argument.text);
    }
    return argument.text == "on";
}

std::string onOff(bool value) {
    return value ? "on" : "off";
}

/// The parameters are by reference; prints their values after the call.
std::string printProposal(shell::VMORA& vmora, const Arguments& arguments) {
    takesBetween(arguments, 1, 2);
    std::int32_t nIdDpi = number(arguments[0]);
    bool bOrden = arguments.size() > 1 && onOff(arguments[1]);
    vmora.jPrintPropuesta(nIdDpi, bOrden);
    return "jPrintPropuesta nIdDpi=" + runtime::CStr(std::int64_t{nIdDpi}) + " bOrden=" + onOff(bOrden);
}

std::string exportReport(shell::VMORA& vmora, const Arguments& arguments) {
    takesBetween(arguments, 0, 1);
    if (!arguments.empty()) {
        vmora.bExportReport(onOff(arguments[0]));
    }
    return "bExportReport = " + onOff(vmora.bExportReport());
}

}  // namespace

struct HostOperations::Host {
    shell::VMORA vmora;

    Host(platform::Desk& desk, session::Session& session) : vmora(desk) { vmora.MyBd(&session); }

    std::function<void(const Arguments&)> plain(void (shell::VMORA::*operation)()) {
        return [this, operation](const Arguments& arguments) {
            takesBetween(arguments, 0, 0);
            (vmora.*operation)();
        };
    }
};

HostOperations::HostOperations(platform::Desk& desk, session::Session& session)
    : host_(std::make_unique<Host>(desk, session)) {
    operations_.open = {
        {"propuestas", host_->plain(&shell::VMORA::jShow)},
        {"seguimiento", host_->plain(&shell::VMORA::jShowSeguimiento)},
        {"parametros", host_->plain(&shell::VMORA::jShowParametros)},
        {"propuesta",
         [host = host_.get()](const Arguments& arguments) {
             takesBetween(arguments, 1, 1);
             std::int32_t nIdDpi = number(arguments[0]);
             host->vmora.jShowPropuesta(nIdDpi);
         }},
    };
    operations_.call = {
        {"jPrintPropuesta",
         [host = host_.get()](const Arguments& arguments) { return printProposal(host->vmora, arguments); }},
        {"bExportReport",
         [host = host_.get()](const Arguments& arguments) { return exportReport(host->vmora, arguments); }},
    };
}

HostOperations::~HostOperations() = default;

}  // namespace velmora::drive
