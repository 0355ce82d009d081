#pragma once
// The members of the public class under the names used in scripts.

#include <cstdint>

#include "velmora/adapters/script/interpreter.h"

namespace velmora::script {

/// An instance of the public class as its host has it: made, with its session set. The parameters by reference are the
/// host's variables.
class PublicClass {
  public:
    virtual ~PublicClass() = default;
    virtual void jShow() = 0;
    virtual void jShowParametros() = 0;
    virtual void jShowPropuesta(std::int32_t& nIdDpi) = 0;
    virtual void jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden) = 0;
    virtual void jShowSeguimiento() = 0;
    virtual void setExportReport(bool value) = 0;
    virtual bool exportReport() = 0;
};

/// The instance must outlive the operations. Those that are called print the values of the variables after the call.
Operations operationsOf(PublicClass& instance);

}  // namespace velmora::script
