#include "velmora/adapters/tsql/pattern.h"

#include <string>
#include <vector>

#include "velmora/platform/runtime/text.h"

namespace velmora::tsql {

namespace {

struct Piece {
    enum class Kind { run, one, character, set } kind;
    char32_t character = 0;
    std::u32string set;  ///< pairs of first and last
    bool excluded = false;

    bool takes(char32_t c) const {
        switch (kind) {
            case Kind::character:
                return c == character;
            case Kind::set:
                break;
            default:
                return true;
        }
        bool in = false;
        for (std::size_t i = 0; i + 1 < set.size(); i += 2) {
            in = in || (c >= set[i] && c <= set[i + 1]);
        }
        return in != excluded;
    }
};

/// The set that begins behind `[` at `at`, which is left behind its `]`; none when it is not closed.
bool readSet(const std::u32string& pattern, std::size_t& at, Piece& piece) {
    const auto close = pattern.find(U']', at);
    if (close == std::u32string::npos) {
        return false;
    }
    piece.kind = Piece::Kind::set;
    if (at < close && pattern[at] == U'^') {
        piece.excluded = true;
        ++at;
    }
    while (at < close) {
        const char32_t first = pattern[at++];
        char32_t last = first;
        if (at + 1 < close && pattern[at] == U'-') {
            last = pattern[at + 1];
            at += 2;
        }
        piece.set += first;
        piece.set += last;
    }
    at = close + 1;
    return true;
}

std::vector<Piece> piecesOf(const std::u32string& pattern, const std::u32string& escape) {
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < pattern.size();) {
        const char32_t c = pattern[at++];
        Piece piece{.kind = Piece::Kind::character, .character = c, .set = {}};
        if (!escape.empty() && c == escape.front() && at < pattern.size()) {
            piece.character = pattern[at++];
        } else if (c == U'%') {
            piece.kind = Piece::Kind::run;
        } else if (c == U'_') {
            piece.kind = Piece::Kind::one;
        } else if (c == U'[') {
            readSet(pattern, at, piece);
        }
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

}  // namespace

bool matchesPattern(std::string_view text, std::string_view pattern, std::string_view escape) {
    const std::u32string characters = runtime::toCodePoints(runtime::UCase(text));
    const std::vector<Piece> pieces =
        piecesOf(runtime::toCodePoints(runtime::UCase(pattern)), runtime::toCodePoints(runtime::UCase(escape)));
    // Greedy; backtracks to the last `%` only, which is sufficient and never takes exponential time.
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t at = 0, piece = 0, runPiece = none, runAt = 0;
    while (at < characters.size()) {
        if (piece < pieces.size() && pieces[piece].kind == Piece::Kind::run) {
            runPiece = piece++;
            runAt = at;
        } else if (piece < pieces.size() && pieces[piece].takes(characters[at])) {
            ++piece;
            ++at;
        } else if (runPiece != none) {
            piece = runPiece + 1;
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (piece < pieces.size() && pieces[piece].kind == Piece::Kind::run) {
        ++piece;
    }
    return piece == pieces.size();
}

}  // namespace velmora::tsql
