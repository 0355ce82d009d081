#pragma once
// Sizes in one direction: how parts side by side, or one below the other, share a length.

#include <cstddef>
#include <vector>

namespace velmora::toolkit {

/// Pixels that something takes in one direction.
struct Need {
    int least = 0;
    int natural = 0;  ///< at least `least`
};

/// A row or column of something that is laid out in one direction.
struct Track {
    Need need = {};
    int stretch = 0;    ///< share of the room that is left
    bool empty = true;  ///< takes no spacing
};

/// Sizes of tracks in `length` pixels with `spacing` between those that are not empty. What does not stretch has its
/// natural size first; what stretches shares the rest, each with its least at least. With less room all shrink alike.
std::vector<int> shareOut(const std::vector<Track>& tracks, int length, int spacing);

/// The larger of both, least and natural.
Need larger(Need a, Need b);

/// What all tracks need together.
Need totalOf(const std::vector<Track>& tracks, int spacing);

/// Adds what a part that spans the tracks from `first` up to `end` needs beyond them: to those that stretch, else to
/// the last.
void widen(std::vector<Track>& tracks, std::size_t first, std::size_t end, Need need, int spacing);

}  // namespace velmora::toolkit
