#include "velmora/platform/toolkit/error_box.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::toolkit {
namespace {

std::string textFor(std::exception_ptr error) {
    const screen::MessageBox box = errorBox(error);
    EXPECT_EQ(box.icon, screen::Icon::critical);
    EXPECT_EQ(box.buttons, screen::Buttons::ok);
    EXPECT_EQ(box.title, "VELMORA");
    return box.text;
}

TEST(ErrorBoxTest, ARunTimeErrorShowsItsWordsThenItsNumber) {
    EXPECT_EQ(textFor(std::make_exception_ptr(runtime::RuntimeError(13, "No coinciden los tipos"))),
              "No coinciden los tipos\n\nError 13");
}

TEST(ErrorBoxTest, AProvidersNumberIsShownInBothForms) {
    EXPECT_EQ(
        textFor(std::make_exception_ptr(runtime::RuntimeError(static_cast<int>(0x80040E37U), "No existe la tabla"))),
        "No existe la tabla\n\nError -2147217865 (80040E37)");
}

TEST(ErrorBoxTest, AnyOtherExceptionIsAnInternalErrorWithItsText) {
    EXPECT_EQ(textFor(std::make_exception_ptr(std::out_of_range("beyond the list"))),
              "Error interno del programa\n\nbeyond the list");
    EXPECT_EQ(textFor(std::make_exception_ptr(7)), "Error interno del programa");
}

TEST(ErrorBoxTest, AnErrorWithoutADescriptionShowsItsSource) {
    EXPECT_EQ(textFor(std::make_exception_ptr(runtime::RuntimeError(-9996, "", "Error Añadiendo Material"))),
              "Error Añadiendo Material\n\nError -9996 (FFFFD8F4)");
}

TEST(ErrorReportTest, DetailsTellAllThatIsKnown) {
    const ErrorReport report =
        errorReport(std::make_exception_ptr(runtime::RuntimeError(13, "No coinciden los tipos", "VELMORA.Data")));
    EXPECT_EQ(report.words, "No coinciden los tipos");
    EXPECT_EQ(report.number, "Error 13");
    EXPECT_EQ(report.details, "No coinciden los tipos\n\nError 13\nOrigen: VELMORA.Data");
    EXPECT_FALSE(report.folder);
}

TEST(ErrorReportTest, AnErrorWithAFileOffersItsFolder) {
    const ErrorReport report = errorReport(std::make_exception_ptr(runtime::RuntimeError(
        75, "No se puede escribir el fichero\n/casa/papeles/Propuesta_000007.pdf\n\nNo queda sitio en el disco.")));
    EXPECT_EQ(report.folder, "/casa/papeles");
}

TEST(FolderNamedInTest, IsThatOfTheFirstWholePath) {
    EXPECT_EQ(folderNamedIn("Escrito en\r\nC:\\Papeles\\p.pdf\r\n"), "C:\\Papeles");
    EXPECT_EQ(folderNamedIn("\\\\servidor\\papeles\\p.pdf"), "\\\\servidor\\papeles");
    EXPECT_EQ(folderNamedIn("No está\n/taller.db"), "/");
    EXPECT_EQ(folderNamedIn("3/4 de pulgada\nPropuesta 7"), std::nullopt);
    EXPECT_EQ(folderNamedIn(""), std::nullopt);
}

}  // namespace
}  // namespace velmora::toolkit
