#pragma once
// The public class of the component, and the global through which its operations reach the session.

#include <cstdint>
#include <memory>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::shell {

/// What a host does, in order: make a VMORA, give it MyBd, call one of the operations, let it go. Each operation
/// that opens a form returns when the form is closed. Only one instance in a process is meaningful: the last one
/// made serves all operations. Errors: 91 from any operation that opens a form while MyBd is not set; what the
/// database raises.
class VMORA {
  public:
    /// Becomes gVMORA. The desk must outlive the instance.
    explicit VMORA(platform::Desk& desk);
    VMORA(const VMORA&) = delete;
    VMORA& operator=(const VMORA&) = delete;

    /// The host's open session, kept by reference, never opened or closed here.
    void MyBd(session::Session* session) { given_->MyBd = session; }
    /// Error 91 while there is none.
    session::Session& MyBd() const;

    /// Stored and given back; nothing else reads it.
    void bExportReport(bool value) { bExportReport_ = value; }
    bool bExportReport() const { return bExportReport_; }

    void jShow();                                              ///< the proposals form
    void jShowParametros();                                    ///< the materials form
    void jShowPropuesta(std::int32_t& nIdDpi);                 ///< one proposal, read-only; nothing for 0 or less
    void jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden);  ///< declared, and without effect
    void jShowSeguimiento();                                   ///< the tracking form

    /// What an instance was given; it outlives the instance while gVMORA holds it.
    struct Given {
        session::Session* MyBd = nullptr;
    };

  private:
    platform::Desk& desk_;
    std::shared_ptr<Given> given_ = std::make_shared<Given>();
    bool bExportReport_ = false;
};

/// What the instance made last was given. Nobody clears it.
extern std::shared_ptr<VMORA::Given> gVMORA;

}  // namespace velmora::shell
