#include "velmora/platform/toolkit/layout_tracks.h"

#include <algorithm>

namespace velmora::toolkit {

namespace {

int gapsOf(const std::vector<Track>& tracks, int spacing) {
    const auto full = std::ranges::count(tracks, false, &Track::empty);
    return full > 1 ? static_cast<int>(full - 1) * spacing : 0;
}

/// Divides `pool` among the tracks that stretch, none of which gets less than its least.
void stretchOut(const std::vector<Track>& tracks, int pool, std::vector<int>& sizes) {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        if (tracks[i].stretch > 0) {
            open.push_back(i);
        }
    }
    while (!open.empty()) {
        int shares = 0;
        for (const std::size_t i : open) {
            shares += tracks[i].stretch;
        }
        const auto tooSmall = std::ranges::find_if(
            open, [&](std::size_t i) { return pool * tracks[i].stretch / shares < tracks[i].need.least; });
        if (tooSmall != open.end()) {
            pool -= sizes[*tooSmall];
            open.erase(tooSmall);
            continue;
        }
        for (const std::size_t i : open) {
            sizes[i] = pool * tracks[i].stretch / shares;
            pool -= sizes[i];
            shares -= tracks[i].stretch;
        }
        return;
    }
}

/// Takes `missing` pixels from the tracks: from each the same, but none goes below its least.
void shrink(const std::vector<Track>& tracks, int missing, std::vector<int>& sizes) {
    while (missing > 0) {
        std::vector<std::size_t> open;
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            if (sizes[i] > tracks[i].need.least) {
                open.push_back(i);
            }
        }
        if (open.empty()) {
            return;
        }
        const int share = std::max(missing / static_cast<int>(open.size()), 1);
        for (const std::size_t i : open) {
            const int less = std::min({share, sizes[i] - tracks[i].need.least, missing});
            sizes[i] -= less;
            missing -= less;
        }
    }
}

}  // namespace

Need larger(Need a, Need b) {
    return {.least = std::max(a.least, b.least), .natural = std::max(a.natural, b.natural)};
}

Need totalOf(const std::vector<Track>& tracks, int spacing) {
    Need total{.least = gapsOf(tracks, spacing), .natural = gapsOf(tracks, spacing)};
    for (const Track& track : tracks) {
        total.least += track.need.least;
        total.natural += track.need.natural;
    }
    return total;
}

void widen(std::vector<Track>& tracks, std::size_t first, std::size_t end, Need need, int spacing) {
    const std::vector<Track> spanned(tracks.begin() + static_cast<std::ptrdiff_t>(first),
                                     tracks.begin() + static_cast<std::ptrdiff_t>(end));
    const Need has = totalOf(spanned, spacing);
    std::size_t taker = end;
    for (std::size_t i = first; i < end; ++i) {
        const bool better = taker == end || tracks[i].stretch > tracks[taker].stretch ||
                            (tracks[taker].stretch == 0 && !tracks[i].empty);
        taker = better ? i : taker;
    }
    Track& track = tracks[taker];
    const Need before = track.need;
    track.need.least += std::max(need.least - has.least, 0);
    track.need.natural = std::max(track.need.natural + std::max(need.natural - has.natural, 0), track.need.least);
    track.empty = track.empty && before.natural == track.need.natural;
}

std::vector<int> shareOut(const std::vector<Track>& tracks, int length, int spacing) {
    std::vector<int> sizes;
    sizes.reserve(tracks.size());
    int wanted = 0;
    int least = 0;
    int stiff = 0;
    for (const Track& track : tracks) {
        sizes.push_back(track.stretch > 0 ? track.need.least : track.need.natural);
        wanted += sizes.back();
        least += track.need.least;
        stiff += track.stretch > 0 ? 0 : track.need.natural;
    }
    const int room = length - gapsOf(tracks, spacing);
    if (room >= wanted) {
        stretchOut(tracks, room - stiff, sizes);
    } else {
        shrink(tracks, wanted - std::max(room, least), sizes);
    }
    return sizes;
}

}  // namespace velmora::toolkit
