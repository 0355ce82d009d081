#include "velmora/adapters/tsql/pattern.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "velmora/platform/runtime/text.h"

namespace velmora::tsql {

namespace {

/// The set that begins behind `[` at `at`, which is left behind its `]`; none when it is not closed.
bool readSet(const std::u32string& pattern, std::size_t& at, Pattern::Piece& piece) {
    const auto close = pattern.find(U']', at);
    if (close == std::u32string::npos) {
        return false;
    }
    piece.kind = Pattern::Piece::Kind::set;
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

std::vector<Pattern::Piece> piecesOf(const std::u32string& pattern, const std::u32string& escape) {
    std::vector<Pattern::Piece> pieces;
    for (std::size_t at = 0; at < pattern.size();) {
        const char32_t c = pattern[at++];
        Pattern::Piece piece{.kind = Pattern::Piece::Kind::character, .character = c, .set = {}};
        if (!escape.empty() && c == escape.front() && at < pattern.size()) {
            piece.character = pattern[at++];
        } else if (c == U'%') {
            piece.kind = Pattern::Piece::Kind::run;
        } else if (c == U'_') {
            piece.kind = Pattern::Piece::Kind::one;
        } else if (c == U'[') {
            readSet(pattern, at, piece);
        }
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

char32_t capital(char c) {
    return static_cast<char32_t>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

}  // namespace

Pattern::Pattern(std::string_view pattern, std::string_view escape)
    : pieces_(piecesOf(runtime::toCodePoints(runtime::UCase(pattern)), runtime::toCodePoints(runtime::UCase(escape)))) {
}

bool Pattern::Piece::takes(char32_t c) const {
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

bool Pattern::matches(std::string_view text) const {
    // The usual text needs no memory of its own.
    std::array<char32_t, 256> plain;
    if (text.size() <= plain.size() && std::ranges::all_of(text, isAscii)) {
        std::ranges::transform(text, plain.begin(), capital);
        return matches(std::u32string_view(plain.data(), text.size()));
    }
    return matches(std::u32string_view(runtime::toCodePoints(runtime::UCase(text))));
}

bool Pattern::matches(std::u32string_view characters) const {
    // Greedy; backtracks to the last `%` only, which is sufficient and never takes exponential time.
    constexpr std::size_t none = static_cast<std::size_t>(-1);
    std::size_t at = 0, piece = 0, runPiece = none, runAt = 0;
    while (at < characters.size()) {
        if (piece < pieces_.size() && pieces_[piece].kind == Piece::Kind::run) {
            runPiece = piece++;
            runAt = at;
        } else if (piece < pieces_.size() && pieces_[piece].takes(characters[at])) {
            ++piece;
            ++at;
        } else if (runPiece != none) {
            piece = runPiece + 1;
            at = ++runAt;
        } else {
            return false;
        }
    }
    while (piece < pieces_.size() && pieces_[piece].kind == Piece::Kind::run) {
        ++piece;
    }
    return piece == pieces_.size();
}

bool matchesPattern(std::string_view text, std::string_view pattern, std::string_view escape) {
    return Pattern(pattern, escape).matches(text);
}

}  // namespace velmora::tsql
