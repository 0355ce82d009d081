#include "velmora/adapters/script/public_operations.h"

#include <string>

#include "velmora/adapters/script/command.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::script {

namespace {

using Arguments = Operations::Arguments;

void takesBetween(const Arguments& arguments, std::size_t least, std::size_t most) {
    if (arguments.size() < least || arguments.size() > most) {
        throw WrongScript("too few or too many values for the operation");
    }
}

std::int32_t number(const Argument& argument) {
    const auto value = wholeNumber(argument.text);
    if (!value) {
        throw WrongScript("no whole number: " + argument.text);
    }
    return *value;
}

bool readSwitch(const Argument& argument) {
    if (argument.text != "on" && argument.text != "off") {
        throw WrongScript("neither on nor off: " + argument.text);
    }
    return argument.text == "on";
}

std::string switchText(bool value) {
    return value ? "on" : "off";
}

std::string printProposal(PublicClass& instance, const Arguments& arguments) {
    takesBetween(arguments, 1, 2);
    std::int32_t nIdDpi = number(arguments[0]);
    bool bOrden = arguments.size() > 1 && readSwitch(arguments[1]);
    instance.jPrintPropuesta(nIdDpi, bOrden);
    return "jPrintPropuesta nIdDpi=" + runtime::CStr(std::int64_t{nIdDpi}) + " bOrden=" + switchText(bOrden);
}

std::string exportReport(PublicClass& instance, const Arguments& arguments) {
    takesBetween(arguments, 0, 1);
    if (!arguments.empty()) {
        instance.setExportReport(readSwitch(arguments[0]));
    }
    return "bExportReport = " + switchText(instance.exportReport());
}

}  // namespace

Operations operationsOf(PublicClass& instance) {
    const auto plain = [&instance](void (PublicClass::*member)()) {
        return [&instance, member](const Arguments& arguments) {
            takesBetween(arguments, 0, 0);
            (instance.*member)();
        };
    };
    Operations operations;
    operations.open = {
        {"propuestas", plain(&PublicClass::jShow)},
        {"seguimiento", plain(&PublicClass::jShowSeguimiento)},
        {"parametros", plain(&PublicClass::jShowParametros)},
        {"propuesta",
         [&instance](const Arguments& arguments) {
             takesBetween(arguments, 1, 1);
             std::int32_t nIdDpi = number(arguments[0]);
             instance.jShowPropuesta(nIdDpi);
         }},
    };
    operations.call = {
        {"jPrintPropuesta", [&instance](const Arguments& arguments) { return printProposal(instance, arguments); }},
        {"bExportReport", [&instance](const Arguments& arguments) { return exportReport(instance, arguments); }},
    };
    return operations;
}

}  // namespace velmora::script
