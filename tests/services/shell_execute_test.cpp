#include "velmora/services/shell_execute.h"

#include <gmock/gmock.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

/// The error of opening a file when the platform answers with a code; none when it opens.
std::optional<runtime::RuntimeError> errorFor(int code) {
    FakeServices services;
    services.openingCode = code;
    try {
        ShellEx(services, "/tmp/plano.pdf");
    } catch (const runtime::RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

struct Told {
    int code;
    const char* text;
};

TEST(ShellExTest, EveryFailureHasItsText) {
    for (const Told& each : {
             Told{0, "Out of memory"},
             Told{8, "Out of memory"},
             Told{2, "File not found"},
             Told{3, "Path not found"},
             Told{5, "Path/file access error"},
             Told{11, "The executable file is invalid or corrupt"},
             Told{26, "A sharing violation occurred."},
             Told{27, "This file type does not have a valid file association."},
             Told{28, "The file could not be opened due to time out.  Please try again in a moment."},
             Told{29,
                  "The file could not be opened because the DDE transaction failed.  Please try again in a moment."},
             Told{
                 30,
                 "The file could not be opened because the target application is busy.  Please try again in a moment."},
             Told{31, "No application is associated with this file type."},
             Told{32, "The specified dynamic-link library was not found."},
         }) {
        const auto error = errorFor(each.code);
        ASSERT_TRUE(error) << each.code;
        EXPECT_EQ(error->description(), each.text) << each.code;
        EXPECT_EQ(error->source(), "VELMORA.GShell") << each.code;
    }
}

TEST(ShellExTest, AnyOtherFailureSaysOccurredTwice) {
    for (const int code : {1, 4, 6, 7, 9, 10, 12, 25}) {
        const auto error = errorFor(code);
        ASSERT_TRUE(error) << code;
        EXPECT_EQ(error->description(), "An error occurred occurred whilst trying to open or print the selected file.");
    }
}

TEST(ShellExTest, WhatTheLanguageNumbersBearsItsNumber) {
    EXPECT_EQ(errorFor(0)->number(), 7);
    EXPECT_EQ(errorFor(2)->number(), 53);
    EXPECT_EQ(errorFor(3)->number(), 76);
    EXPECT_EQ(errorFor(5)->number(), 75);
    EXPECT_LT(errorFor(31)->number(), 0);
}

TEST(ShellExTest, ACodeAboveThirtyTwoHasOpenedTheFile) {
    FakeServices services;
    for (const int code : {33, 42, 1000}) {
        EXPECT_FALSE(errorFor(code)) << code;
    }
    ShellEx(services, "/tmp/plano.pdf");
    EXPECT_THAT(services.opened, ::testing::ElementsAre("/tmp/plano.pdf"));
}

TEST(ShellExTest, ACallThatFailsReadsAsALackOfMemory) {
    FakeServices services;
    services.openingError = runtime::RuntimeError(53, "no");
    try {
        ShellEx(services, "/tmp/plano.pdf");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.description(), "Out of memory");
    }
}

}  // namespace
}  // namespace velmora::services
