#include "velmora/adapters/tsql/tokenizer.h"

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

namespace velmora::tsql {

TEST(Tokenizer, KnowsEveryKindOfWord) {
    const auto tokens = tokenize("N'a''b' [x]]y] \"q\" 12 1.5 1e5 .5 0xABC <> -- rest\n /* c */ _a1");
    const std::vector<std::pair<TokenKind, std::string>> expected = {
        {TokenKind::text, "a'b"},     {TokenKind::quotedName, "x]y"},
        {TokenKind::quotedName, "q"}, {TokenKind::whole, ""},
        {TokenKind::decimal, ""},     {TokenKind::real, ""},
        {TokenKind::decimal, ""},     {TokenKind::binary, "0ABC"},
        {TokenKind::symbol, ""},      {TokenKind::word, ""},
        {TokenKind::end, ""}};
    ASSERT_EQ(tokens.size(), expected.size());
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        EXPECT_EQ(tokens[i].kind, expected[i].first) << i;
        EXPECT_EQ(tokens[i].value, expected[i].second) << i;
    }
}

TEST(Tokenizer, RefusesWhatIsNotClosed) {
    for (const char* text :
         {"select 'a", "select [a", "select \"a", "select /* a", "select 1.2.3", "select 12abc", "select 0xZZ"}) {
        EXPECT_THROW(tokenize(text), sql::DbError) << text;
    }
}

TEST(Tokenizer, FoldsNamesBeyondAscii) {
    EXPECT_EQ(foldName("OrdPiñones"), foldName("ORDPIÑONES"));
    EXPECT_NE(foldName("OrdPinones"), foldName("OrdPiñones"));
}

TEST(Tokenizer, TwoSpellingsAreOneNameWhenTheirFoldedFormsAre) {
    const std::vector<std::string> names = {"",           "d",          "D",          "DPI_Id",     "dpi_ID",
                                            "DPI_I",      "DPI_Idx",    "OrdPiñones", "ORDPIÑONES", "ordpiñone",
                                            "OrdPiñoneS", "OrdPinones", "OrdPi",      "ñ",          "Ñ"};
    for (const std::string& one : names) {
        for (const std::string& other : names) {
            EXPECT_EQ(isSameName(one, other), foldName(one) == foldName(other)) << one << " and " << other;
        }
    }
    EXPECT_TRUE(isSameName("dpi_ID", "DPI_Id"));
    EXPECT_TRUE(isSameName("ordpiñones", "ORDPIÑONES"));
    EXPECT_FALSE(isSameName("DPI_I", "DPI_Id"));
}

}  // namespace velmora::tsql
