#include "velmora/platform/runtime/one_line.h"

namespace velmora::runtime {

std::string inOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        switch (c) {
            case '\\':
                line += "\\\\";
                break;
            case '\n':
                line += "\\n";
                break;
            case '\r':
                line += "\\r";
                break;
            default:
                line += c;
        }
    }
    return line;
}

std::string fromOneLine(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char escaped = line[++i];
        text += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : escaped;
    }
    return text;
}

}  // namespace velmora::runtime
