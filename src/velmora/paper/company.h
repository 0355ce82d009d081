#pragma once
// The company that hands a paper out.

#include <string>

namespace velmora::paper {

/// All of it may be missing: a paper bears what is there.
struct Company {
    std::string name = {};
    std::string taxNumber = {};
    std::string address = {};  ///< several lines
    std::string telephone = {};
    std::string email = {};
    std::string logo = {};   ///< the bytes of a PNG, JPEG or SVG picture
    std::string terms = {};  ///< several lines
    int validityDays = 0;    ///< of an offer, counted from its date; 0: it is not told

    bool operator==(const Company&) const = default;
};

}  // namespace velmora::paper
