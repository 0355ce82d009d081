#pragma once
// Errors across the border: the failure of a call as a run-time error, and a run-time error as the failure of a call.
// Number, description and source cross in both directions.

#include <functional>
#include <string_view>

#include "velmora/adapters/com/com_headers.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

/// What the caller of a late-bound member is told when it fails. Owns the texts that the callee has filled in.
class ExceptionInfo {
  public:
    ExceptionInfo() = default;
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo();
    EXCEPINFO* out() { return &info_; }
    /// Fetches texts that the callee fills in only when asked.
    const EXCEPINFO& filled();

  private:
    EXCEPINFO info_{};
};

/// The number of a run-time error: 0x800Annnn is the language's number nnnn, everything else is its own number.
long numberOf(HRESULT code);
/// The opposite of numberOf; always a failure.
HRESULT codeOf(long number);

/// A failing answer as a run-time error. `member` names what was called, for the descriptions of our own: error 438 for
/// a member that the object lacks, 450 and 449 for other arguments, 13 and 6 for values that do not fit.
runtime::RuntimeError errorOf(HRESULT answer, ExceptionInfo& info, std::string_view member);

/// Runs `work` for a caller from outside. An exception becomes DISP_E_EXCEPTION with `info` filled in, or the error's
/// code when the caller gives no `info`. What is no run-time error has the code E_FAIL.
HRESULT guarded(EXCEPINFO* info, const std::function<void()>& work) noexcept;
/// The same for a caller through the interface's own methods: the error's code, with the thread's error object set.
HRESULT guarded(REFIID interfaceId, const std::function<void()>& work) noexcept;

}  // namespace velmora::com
