#include "velmora/adapters/odbc/connection_text.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {
namespace {

TEST(ConnectionText, AValueIsFoundByItsKeywordInAnyCase) {
    const std::string text = "Driver={A;B}; server = 10.0.0.1 ;Pwd={x}}y;};Database=TALLER";
    EXPECT_EQ(valueOf(text, "DRIVER"), "A;B");
    EXPECT_EQ(valueOf(text, "SERVER"), " 10.0.0.1 ");
    EXPECT_EQ(valueOf(text, "pwd"), "x}y;");
    EXPECT_EQ(valueOf(text, "DATABASE"), "TALLER");
    EXPECT_EQ(valueOf(text, "UID"), "");
}

TEST(ConnectionText, AValueCanBeReplaced) {
    EXPECT_EQ(withValue("UID=a;Database={x;y};PWD=b", "DATABASE", "z"), "UID=a;Database=z;PWD=b");
    EXPECT_EQ(withValue("UID=a", "DATABASE", "z"), "UID=a");
}

TEST(ConnectionText, ThePasswordIsStruckOutWhereverItStands) {
    EXPECT_EQ(withoutPasswordOf("UID=a;PWD=geheim", "login a/geheim failed"), "login a/*** failed");
    EXPECT_EQ(withoutPasswordOf("UID=a;password={ge;heim}", "PWD=ge;heim"), "PWD=***");
    EXPECT_EQ(withoutPasswordOf("UID=a;password={ge;heim}", "password={ge;heim}"), "password={***}");
    EXPECT_EQ(withoutPasswordOf("UID=a", "login a failed"), "login a failed");
    EXPECT_EQ(withoutPasswordOf("UID=a;PWD=", "login a failed"), "login a failed");
}

TEST(ConnectionText, ATextWithoutAnEqualsSignNamesAFile) {
    const std::string path = (std::filesystem::temp_directory_path() / "velmora_connection_text_test").string();
    std::ofstream(path) << "DRIVER=x;PWD=y\r\nsecond line\n";
    EXPECT_EQ(readConnectionText(path), "DRIVER=x;PWD=y");
    EXPECT_EQ(readConnectionText("DRIVER=z"), "DRIVER=z");
    std::ofstream(path) << "nothing\n";
    EXPECT_THROW(readConnectionText(path), sql::DbError);
    std::filesystem::remove(path);
    EXPECT_THROW(readConnectionText(path), sql::DbError);
}

}  // namespace
}  // namespace velmora::odbc
