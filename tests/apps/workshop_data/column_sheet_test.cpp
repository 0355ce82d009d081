#include "velmora/apps/workshop_data/column_sheet.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

namespace velmora::workshop_data {
namespace {

// Written again with: build/dev/tests/write_column_sheet > docs/datos-csv.md
TEST(ColumnSheet, TheDocumentTellsTheColumnsAsTheyAre) {
    std::ifstream file(VELMORA_SOURCE_DIR "/docs/datos-csv.md");
    ASSERT_TRUE(file);
    EXPECT_EQ((std::string{std::istreambuf_iterator<char>(file), {}}), columnSheet());
}

}  // namespace
}  // namespace velmora::workshop_data
