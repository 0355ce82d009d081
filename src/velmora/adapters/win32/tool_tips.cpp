#include "velmora/adapters/win32/tool_tips.h"

#include "velmora/adapters/win32/module.h"

namespace velmora::win32 {

namespace {

HWND createTips(HWND owner) {
    const CreationScope scope;
    return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0,
                           owner, nullptr, ownModule(), nullptr);
}

}  // namespace

ToolTips::ToolTips(HWND owner, HWND page, int width) : page_(page), tips_(createTips(owner)) {
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, width);
}

void ToolTips::add(HWND window) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = page_;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::forget() {
    SendMessageW(tips_, TTM_POP, 0, 0);
}

bool ToolTips::answer(LPARAM notification, const std::function<std::wstring(HWND)>& textFor) {
    auto& question = *reinterpret_cast<NMTTDISPINFOW*>(notification);
    if (question.hdr.hwndFrom != tips_ || question.hdr.code != TTN_GETDISPINFOW) {
        return false;
    }
    told_ = textFor(reinterpret_cast<HWND>(question.hdr.idFrom));
    question.lpszText = told_.data();
    return true;
}

}  // namespace velmora::win32
