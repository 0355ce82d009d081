#include "velmora/adapters/documents/files.h"

#include <QIODevice>
#include <fstream>

#include "velmora/platform/runtime/errors.h"

#include "support/fake_services.h"
#include "support/temporary_folder.h"

namespace velmora::documents {
namespace {

using runtime::RuntimeError;

std::string contentOf(const std::string& path) {
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(FileName, IsOneThatEveryFileSystemTakes) {
    EXPECT_EQ(fileName("Registro de presupuestos"), "Registro de presupuestos");
    EXPECT_EQ(fileName("a/b\\c:d*e?f\"g<h>i|j\tk"), "a b c d e f g h i j k");
    EXPECT_EQ(fileName(" Piñones nº 1. . "), "Piñones nº 1");
    EXPECT_EQ(fileName("///"), "");
    EXPECT_EQ(fileName(std::string(500, 'x')).size(), 120u);
}

TEST(TemporaryPath, WithoutAFolderIsAnErrorThatNamesTheFile) {
    const support::TemporaryFolder folder;
    support::FakeServices services(folder);
    EXPECT_EQ(temporaryPath(services, "a.pdf"), services.folder + "a.pdf");
    services.folder.clear();
    try {
        temporaryPath(services, "a.pdf");
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 76);
        EXPECT_EQ(e.description(), "No hay carpeta temporal en la que escribir a.pdf");
    }
}

TEST(OpenDocument, AFileThatNoProgramOpensIsAnErrorThatTellsWhereItLies) {
    const support::TemporaryFolder folder;
    support::FakeServices services(folder);
    openDocument(services, "/tmp/a.pdf");
    EXPECT_EQ(services.opened, std::vector<std::string>{"/tmp/a.pdf"});
    for (const int refusal : {0, 2, 31, 32}) {
        services.openingCode = refusal;
        try {
            openDocument(services, "/tmp/a.pdf");
            FAIL() << refusal;
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.number(), 75);
            EXPECT_EQ(e.description(), "El documento está escrito, pero ningún programa lo abre:\n/tmp/a.pdf");
        }
    }
}

TEST(NewFile, LeavesWhatStoodThereUntilItIsWhole) {
    const support::TemporaryFolder folder;
    const std::string path = folder.path() / "a.txt";
    std::ofstream(path) << "old";
    {
        const NewFile file(path);
        std::ofstream(file.draft()) << "half";
    }
    EXPECT_EQ(folder.files(), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(std::filesystem::file_size(path), 3u);
    {
        NewFile file(path);
        std::ofstream(file.draft()) << "whole";
        file.keep();
    }
    EXPECT_EQ(folder.files(), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(std::filesystem::file_size(path), 5u);
}

TEST(NewFile, ALinkInTheWayIsNotFollowed) {
    const support::TemporaryFolder folder;
    const std::string foreign = folder.path() / "ajeno.txt";
    const std::string path = folder.path() / "a.txt";
    std::ofstream(foreign) << "ajeno";
    std::filesystem::create_symlink(foreign, path + ".part");
    std::filesystem::create_symlink(foreign, path);
    {
        NewFile file(path);
        std::ofstream(file.draft()) << "whole";
        file.keep();
    }
    EXPECT_EQ(std::filesystem::file_size(foreign), 5u);
    EXPECT_EQ(contentOf(foreign), "ajeno");
    EXPECT_EQ(contentOf(path), "whole");
    EXPECT_FALSE(std::filesystem::is_symlink(path));
}

TEST(NewFile, WhyItCannotBeMadeIsSaidInTheUsersLanguage) {
    const support::TemporaryFolder folder;
    std::ofstream(folder.path() / "fichero") << "x";
    const std::pair<std::string, std::string> cases[] = {
        {folder.path() / "falta/a.txt", "La carpeta no existe."},
        {folder.path() / "fichero/a.txt", "La carpeta no existe."},
        {folder.path() / std::string(300, 'x'), "El nombre es demasiado largo."},
        {"/proc/version/a.txt", "La carpeta no existe."},
        {"/proc/self/a.txt", "La carpeta no existe."},
    };
    for (const auto& [path, reason] : cases) {
        try {
            const NewFile file(path);
            ADD_FAILURE() << path;
        } catch (const RuntimeError& e) {
            EXPECT_EQ(e.description(), "No se puede escribir el fichero\n" + path + "\n\n" + reason);
        }
    }
}

TEST(NewFile, ThatCannotTakeItsNameIsAnErrorThatNamesIt) {
    const support::TemporaryFolder folder;
    const std::string path = folder.path() / "a.txt";
    std::filesystem::create_directories(path + "/inside");
    NewFile file(path);
    std::ofstream(file.draft()) << "whole";
    try {
        file.keep();
        FAIL() << "no error";
    } catch (const RuntimeError& e) {
        EXPECT_EQ(e.number(), 75);
        EXPECT_NE(e.description().find("No se puede escribir el fichero\n" + path), std::string::npos);
    }
}

TEST(WriteFile, WhatCannotBeWrittenWholeIsNoFile) {
    const support::TemporaryFolder folder;
    const std::string path = folder.path() / "a.txt";
    EXPECT_THROW(writeFile(path,
                           [](QIODevice& out) {
                               out.write("half");
                               return false;
                           }),
                 RuntimeError);
    EXPECT_TRUE(folder.files().empty());
    writeFile(path, [](QIODevice& out) { return out.write("whole") == 5; });
    EXPECT_EQ(folder.files(), std::vector<std::string>{"a.txt"});
    EXPECT_EQ(std::filesystem::file_size(path), 5u);
}

}  // namespace
}  // namespace velmora::documents
