#include "velmora/platform/toolkit/search_words.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

TEST(SearchWordsTest, ATextMatchesByItsWordsInAnyOrderWithoutAccentsOrCase) {
    struct Row {
        const char* filter;
        const char* text;
        bool matches;
    };
    for (const Row& row : {
             Row{"", "TALLERES NORTE SL", true},
             Row{"   ", "", true},
             Row{"norte", "TALLERES NORTE SL", true},
             Row{"norte talleres", "TALLERES NORTE SL", true},
             Row{"  nor   tall ", "TALLERES NORTE SL", true},
             Row{"norte sur", "TALLERES NORTE SL", false},
             Row{"nervion", "Siderurgia del Nervión", true},
             Row{"NERVIÓN", "siderurgia del nervion", true},
             Row{"nervio\u0301n", "Nervión", true},
             Row{"ñandu", "NANDÚ", true},
             Row{"espana", "Engranajes de España", true},
             Row{"cinca", "Industrias del Çinca", true},
             Row{"muller", "Müller & Söhne", true},
             Row{"sohne", "Müller & Söhne", true},
             Row{"lodz", "Zakład Łódź", true},
             Row{"zaklad", "Zakład Łódź", true},
             Row{"skoda", "Škoda", true},
             Row{"3/4", "ISO 3/4''", true},
             Row{"x", "", false},
         }) {
        EXPECT_EQ(SearchWords(row.filter)(row.text), row.matches) << row.filter << " in " << row.text;
    }
}

TEST(SearchWordsTest, LettersOutsideTheLatinAlphabetAndSignsStayAsTheyAre) {
    EXPECT_EQ(plainLetters("Ø 25 ÷ 3 × 2"), U"o 25 ÷ 3 × 2");
    EXPECT_EQ(plainLetters("ß"), U"ß");
    EXPECT_EQ(plainLetters("Δ"), plainLetters("Δ"));
}

}  // namespace
}  // namespace velmora::toolkit
