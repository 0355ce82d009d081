#pragma once
// Files of T-SQL batches, as an administrator's tool reads them.

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace velmora::support {

/// The batches of a text, each ended by a line GO; lines of "--" comments are left out, the last batch if it is open.
inline std::vector<std::string> batchesOf(const std::string& text) {
    std::vector<std::string> batches;
    std::string batch;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line == "GO") {
            batches.push_back(std::exchange(batch, {}));
        } else if (!line.empty() && !line.starts_with("--")) {
            batch += (batch.empty() ? "" : "\n") + line;
        }
    }
    return batches;
}

/// A statement with its words one blank apart, and none beside parentheses and commas.
inline std::string evenlySpaced(const std::string& statement) {
    const auto standsAlone = [](char c) { return c == '(' || c == ')' || c == ','; };
    std::string result;
    bool blank = false;
    for (const char c : statement) {
        if (c == ' ' || c == '\n') {
            blank = true;
            continue;
        }
        if (blank && !result.empty() && !standsAlone(c) && !standsAlone(result.back())) {
            result += ' ';
        }
        result += c;
        blank = false;
    }
    return result;
}

}  // namespace velmora::support
