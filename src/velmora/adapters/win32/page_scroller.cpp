#include "velmora/adapters/win32/page_scroller.h"

#include <algorithm>

namespace velmora::win32 {

Box PageScroller::room() const {
    Box room = clientBox(window_);
    room.height = std::max(room.height - footer_, 0);
    return room;
}

void PageScroller::placePage(SIZE needed) {
    showBars(needed);
    const Box seen = room();
    movePage(std::max<int>(seen.width, needed.cx), std::max<int>(seen.height, needed.cy));
}

void PageScroller::movePage(int width, int height) {
    moveTo(page_, {.left = -at_.x, .top = -at_.y, .width = width, .height = height});
}

void PageScroller::showBars(SIZE needed) {
    const auto bar = [&](int which, LONG need, LONG has, LONG& position) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = need > has ? need - 1 : 0;
        info.nPage = static_cast<UINT>(need > has ? has : 1);
        position = std::clamp<LONG>(position, 0, std::max<LONG>(need - has, 0));
        info.nPos = position;
        SetScrollInfo(window_, which, &info, TRUE);
    };
    const int height = room().height;
    bar(SB_VERT, needed.cy, height, at_.y);
    bar(SB_HORZ, needed.cx, room().width, at_.x);
    const int rest = room().height;
    if (rest != height) {
        bar(SB_VERT, needed.cy, rest, at_.y);
    }
}

void PageScroller::scrollTo(int x, int y) {
    const Box seen = room();
    const Box page = clientBox(page_);
    const POINT wanted{std::clamp(x, 0, std::max(page.width - seen.width, 0)),
                       std::clamp(y, 0, std::max(page.height - seen.height, 0))};
    if (wanted.x == at_.x && wanted.y == at_.y) {
        return;
    }
    at_ = wanted;
    SetScrollPos(window_, SB_HORZ, at_.x, TRUE);
    SetScrollPos(window_, SB_VERT, at_.y, TRUE);
    movePage(page.width, page.height);
}

void PageScroller::follow(int bar, WPARAM request, int step) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(window_, bar, &info);
    int position = info.nPos;
    switch (LOWORD(request)) {
        case SB_LINEUP:
            position -= step;
            break;
        case SB_LINEDOWN:
            position += step;
            break;
        case SB_PAGEUP:
            position -= static_cast<int>(info.nPage);
            break;
        case SB_PAGEDOWN:
            position += static_cast<int>(info.nPage);
            break;
        case SB_THUMBPOSITION:
        case SB_THUMBTRACK:
            position = info.nTrackPos;
            break;
        default:
            return;
    }
    bar == SB_VERT ? scrollTo(at_.x, position) : scrollTo(position, at_.y);
}

void PageScroller::bringIntoView(const Box& part, int beside) {
    const Box seen = room();
    const auto bring = [beside](int from, int to, int has, LONG now) {
        const int shown = std::max(static_cast<int>(now), to + beside - has);
        return std::min(shown, from - beside);
    };
    scrollTo(bring(part.left, part.right(), seen.width, at_.x), bring(part.top, part.bottom(), seen.height, at_.y));
}

}  // namespace velmora::win32
