#pragma once
// The public class of the component, and the global through which its operations find the session.

#include <cstdint>
#include <memory>
#include <utility>

#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"
#include "velmora/tracking/proposal_list.h"

namespace velmora::shell {

/// A host's calls, in order: create a VMORA, set MyBd, call an operation, release it. Operations that open a form
/// return when the form is closed. Only one instance per process is meaningful: the last one created serves all
/// operations. Errors: 91 from any operation that opens a form while MyBd is not set; the database's.
class VMORA {
  public:
    /// Sets gVMORA. The desk must outlive the instance.
    explicit VMORA(platform::Desk& desk);
    VMORA(const VMORA&) = delete;
    VMORA& operator=(const VMORA&) = delete;

    /// The host's open session; never opened or closed here. It must outlive every operation; nullptr for none.
    void MyBd(session::Session* session);
    /// The same; kept as long as an instance, the last one or a running operation may use it.
    void MyBd(std::shared_ptr<session::Session> session) { *given_ = {.MyBd = std::move(session)}; }
    /// Error 91 when not set.
    session::Session& MyBd() const;

    /// Stored and returned; not used otherwise.
    void bExportReport(bool value) { bExportReport_ = value; }
    bool bExportReport() const { return bExportReport_; }

    void jShow();                                              ///< the proposals form
    void jShowParametros();                                    ///< the materials form
    void jShowPropuesta(std::int32_t& nIdDpi);                 ///< one proposal, read-only; nothing for 0 or less
    void jPrintPropuesta(std::int32_t& nIdDpi, bool& bOrden);  ///< declared, without effect
    void jShowSeguimiento();                                   ///< the tracking form

    /// State of an instance; outlives the instance while gVMORA holds it.
    struct Given {
        std::shared_ptr<session::Session> MyBd{};
        /// Of the session's connection.
        std::shared_ptr<tracking::ListOrder> listOrder = std::make_shared<tracking::ListOrder>();
    };

  private:
    platform::Desk& desk_;
    std::shared_ptr<Given> given_ = std::make_shared<Given>();
    bool bExportReport_ = false;
};

/// The state of the instance created last. Cleared only by a module that is about to be unloaded.
extern std::shared_ptr<VMORA::Given> gVMORA;

}  // namespace velmora::shell
