// What the sheets of each product type say, held against stored texts. After a wanted change write them anew and look
// at what has changed:
//
//     VELMORA_WRITE_GOLDEN=1 build/dev/tests/test_paper --gtest_filter='*SheetGoldenTest*'; git diff tests/paper/golden

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/paper/papers.h"
#include "velmora/platform/runtime/numbers.h"

#include "paper/sample_proposals.h"
#include "paper/sheet_text.h"

namespace velmora::paper {
namespace {

namespace fs = std::filesystem;

const fs::path folder = fs::path(VELMORA_TEST_DATA) / "paper" / "golden";

const std::string withCompany = "type_00_customer_with_company.txt";

std::string fileName(int type, const std::string& whose) {
    return "type_" + runtime::Format(type, "00") + "_" + whose + ".txt";
}

std::string contentsOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// The lines that went, "- ", and those that came, "+ ", in their order; empty for equal texts.
std::string differences(const std::string& before, const std::string& after) {
    const std::vector<std::string> old = linesOf(before);
    const std::vector<std::string> now = linesOf(after);
    // common[i][j]: of how many lines the longest common sequence of old from i and now from j is.
    std::vector common(old.size() + 1, std::vector<std::size_t>(now.size() + 1));
    for (std::size_t i = old.size(); i-- > 0;) {
        for (std::size_t j = now.size(); j-- > 0;) {
            common[i][j] = old[i] == now[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
        }
    }
    std::string result;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < old.size() || j < now.size()) {
        if (i < old.size() && j < now.size() && old[i] == now[j]) {
            ++i;
            ++j;
        } else if (j == now.size() || (i < old.size() && common[i + 1][j] >= common[i][j + 1])) {
            result += "- " + old[i++] + "\n";
        } else {
            result += "+ " + now[j++] + "\n";
        }
    }
    return result.empty() && before != after ? "another end of line\n" : result;
}

bool writesAnew() {
    return std::getenv("VELMORA_WRITE_GOLDEN") != nullptr;
}

/// A run that writes fails, so that nobody takes it for a check.
void expectGolden(const std::string& name, const std::string& text) {
    if (writesAnew()) {
        fs::create_directories(folder);
        std::ofstream(folder / name, std::ios::binary) << text;
        ADD_FAILURE() << "written anew, look at it: " << name;
        return;
    }
    ASSERT_TRUE(fs::exists(folder / name)) << name;
    const std::string difference = differences(contentsOf(folder / name), text);
    EXPECT_TRUE(difference.empty()) << name << "\n" << difference;
}

class SheetGoldenTest : public ::testing::TestWithParam<int> {
  protected:
    support::SampleProposals proposals;
};

TEST_P(SheetGoldenTest, SaysWhatItSaid) {
    const int type = GetParam();
    const auto papers = papersOf(proposals.connection(), support::SampleProposals::numberOf(type), false);
    ASSERT_EQ(papers.size(), 2u);
    expectGolden(fileName(type, "customer"), support::sheetText(papers[0].sheet));
    expectGolden(fileName(type, "shop"), support::sheetText(papers[1].sheet));
}

INSTANTIATE_TEST_SUITE_P(EachType, SheetGoldenTest, ::testing::Range(0, static_cast<int>(data::productTypes.size())));

TEST(SheetWithCompanyTest, CustomersSheetBearsItTheShopsDoesNot) {
    support::SampleProposals proposals;
    proposals.set(support::SampleProposals::numberOf(0), "DPI_FAcepta=null");
    const Company company{.name = "Talleres Ejemplo, S.L.",
                          .taxNumber = "B00000000",
                          .address = "Calle del Torno, 3\n50001 Zaragoza",
                          .telephone = "976 000 000",
                          .email = "taller@ejemplo.invalid",
                          .logo = "not empty",
                          .terms = "Portes debidos.\nPago a 30 días.",
                          .validityDays = 30};
    const auto papers = papersOf(proposals.connection(), support::SampleProposals::numberOf(0), false, company);
    ASSERT_EQ(papers.size(), 2u);
    expectGolden(withCompany, support::sheetText(papers[0].sheet));
    expectGolden(fileName(0, "shop_open"), support::sheetText(papers[1].sheet));
}

TEST(SheetGoldenFilesTest, EachBelongsToAType) {
    std::set<std::string> wanted{withCompany, fileName(0, "shop_open")};
    for (const data::ProductType& type : data::productTypes) {
        wanted.insert({fileName(type.number, "customer"), fileName(type.number, "shop")});
    }
    std::set<std::string> there;
    for (const auto& entry : fs::directory_iterator(folder)) {
        there.insert(entry.path().filename().string());
    }
    EXPECT_EQ(there, wanted);
}

}  // namespace
}  // namespace velmora::paper
