#include "velmora/adapters/script/command.h"

#include <sstream>

#include <gtest/gtest.h>

namespace velmora::script {
namespace {

Command parsed(std::string_view line) {
    return parseLine(line, 1).value();
}

TEST(CommandLine, BareValuesAreDividedByBlanks) {
    const Command command = parsed("  set\tText1(0)   38 ");
    EXPECT_EQ(command.name, "set");
    EXPECT_EQ(command.arguments, (std::vector<Argument>{{"Text1(0)", false}, {"38", false}}));
}

TEST(CommandLine, QuotedValuesHoldBlanksAndEscapes) {
    const Command command = parsed(R"(set x "a \"b\" \\ # c\nd" "")");
    ASSERT_EQ(command.arguments.size(), 3u);
    EXPECT_EQ(command.arguments[1], (Argument{"a \"b\" \\ # c\nd", true}));
    EXPECT_EQ(command.arguments[2], (Argument{"", true}));
}

TEST(CommandLine, ABackslashInABareValueStandsForItself) {
    EXPECT_EQ(parsed(R"(file C:\new\t)").arguments[0].text, R"(C:\new\t)");
}

TEST(CommandLine, AQuotedValueMayFollowAnEqualsSign) {
    EXPECT_EQ(parsed(R"(expect-state x enabled=0 text="a b")").arguments[2], (Argument{"text=a b", false}));
}

TEST(CommandLine, BlankLinesAndCommentsSayNothing) {
    for (const char* line : {"", "   \t", "# open", "   # open"}) {
        EXPECT_FALSE(parseLine(line, 1)) << line;
    }
    EXPECT_EQ(parsed("leave # off the field").arguments.size(), 0u);
    EXPECT_EQ(parsed("echo a#b").arguments[0].text, "a#b");
}

TEST(CommandLine, TryIsAPrefixOfTheCommand) {
    const Command command = parsed("try press cmdSalir");
    EXPECT_TRUE(command.tried);
    EXPECT_EQ(command.name, "press");
    EXPECT_FALSE(parsed("press cmdSalir").tried);
    EXPECT_THROW(parseLine("try", 1), WrongScript);
}

TEST(CommandLine, MalformedQuotingIsWrong) {
    for (const char* line : {"set x \"open", "set x \"a\\", "set x \"a\\t\"", "set x a\"b\"", "set x \"a\"b"}) {
        EXPECT_THROW(parseLine(line, 1), WrongScript) << line;
    }
}

TEST(ScriptReader, CountsEveryLineAndPassesOverMarks) {
    std::istringstream in("\xEF\xBB\xBF# first\r\n\r\nleave\r\nclose");
    ScriptReader reader(in);
    const auto leave = reader.next();
    ASSERT_TRUE(leave);
    EXPECT_EQ(leave->name, "leave");
    EXPECT_EQ(leave->line, 3);
    EXPECT_EQ(reader.next().value().line, 4);
    EXPECT_FALSE(reader.next());
}

}  // namespace
}  // namespace velmora::script
