#include "velmora/services/common_dialog.h"

#include <gtest/gtest.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

TEST(CommonDialogTest, AChosenFileGivesItsPathAndItsTitle) {
    FakeServices services;
    services.files.push_back("/home/ana/planos/pieza 7.dwg");
    std::string path = "before";
    std::string title = "before";
    EXPECT_TRUE(VBGetOpenFileName(services, path, title, "Selección", "Planos|*.dwg"));
    EXPECT_EQ(path, "/home/ana/planos/pieza 7.dwg");
    EXPECT_EQ(title, "pieza 7.dwg");
    EXPECT_EQ(services.requests[0].title, "Selección");
    EXPECT_EQ(services.requests[0].filter, "Planos|*.dwg");
}

TEST(CommonDialogTest, ADialogThatIsLeftChangesNothing) {
    FakeServices services;
    services.files.push_back(std::nullopt);
    std::string path = "before";
    std::string title = "before";
    EXPECT_FALSE(VBGetOpenFileName(services, path, title, "Selección"));
    EXPECT_EQ(path, "before");
    EXPECT_EQ(title, "before");
    EXPECT_EQ(services.requests[0].filter, "All (*.*)| *.*") << "the filter when none is given";
}

TEST(CommonDialogTest, APathOfMoreThan260CharactersIsWhole) {
    FakeServices services;
    const std::string chosen = "/" + std::string(300, 'a') + "/" + std::string(200, 'b') + ".pdf";
    services.files.push_back(chosen);
    std::string path;
    std::string title;
    EXPECT_TRUE(VBGetOpenFileName(services, path, title, "Selección"));
    EXPECT_EQ(path, chosen);
    EXPECT_EQ(title, std::string(200, 'b') + ".pdf");
}

TEST(CommonDialogTest, AFailureOfTheDialogIsRaisedInItsName) {
    FakeServices services;
    services.dialogError = runtime::RuntimeError(20476, "El diálogo no se puede abrir");
    std::string path;
    std::string title;
    try {
        VBGetOpenFileName(services, path, title, "Selección");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.source(), "VELMORA.CommonDialog");
        EXPECT_EQ(error.number(), 20476);
        EXPECT_EQ(error.description(), "El diálogo no se puede abrir");
    }
}

}  // namespace
}  // namespace velmora::services
