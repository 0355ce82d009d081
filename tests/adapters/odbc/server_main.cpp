// Runs the cases that need a server, without those in which it differs by its nature: these are printed with the
// reason. Without a server the program ends with the status that the test runner counts as skipped.

#include <iostream>

#include <gmock/gmock.h>

#include "velmora/platform/sql/db_error.h"

#include "named_differences.h"
#include "server_under_test.h"

namespace {

constexpr int skipped = 77;

void leaveOut(const std::vector<velmora::test::NamedDifference>& differences) {
    std::string filter = GTEST_FLAG_GET(filter);
    for (const auto& [suite, testCase, reason] : differences) {
        std::cout << "Left out: " << suite << '.' << testCase << ": " << reason << '\n';
        filter += filter.find('-') == std::string::npos ? '-' : ':';
        filter += "*/" + std::string(suite) + "." + std::string(testCase) + "/*";
    }
    GTEST_FLAG_SET(filter, filter);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const auto server = velmora::test::testServer();
    if (!server) {
        std::cout << "VELMORA_TEST_DSN names no server\n";
        return skipped;
    }
    try {
        leaveOut(velmora::test::namedDifferences(*server));
    } catch (const velmora::sql::DbError& error) {
        std::cout << error.description() << '\n';
        return 1;
    }
    return RUN_ALL_TESTS();
}
