#pragma once
// A property that must hold for any input: the fuzzer takes the abort as its finding.

#include <cstdio>
#include <cstdlib>

namespace velmora::fuzz {

inline void expect(bool holds, const char* property) {
    if (!holds) {
        std::fputs(property, stderr);
        std::fputc('\n', stderr);
        std::abort();
    }
}

}  // namespace velmora::fuzz
