#include "velmora/adapters/documents/files.h"

#include <QIODevice>
#include <fstream>

#include "velmora/platform/runtime/errors.h"

#include "adapters/documents/folder.h"

namespace velmora::documents {
namespace {

using runtime::RuntimeError;

TEST(FileName, IsOneThatEveryFileSystemTakes) {
    EXPECT_EQ(fileName("Registro de presupuestos"), "Registro de presupuestos");
    EXPECT_EQ(fileName("a/b\\c:d*e?f\"g<h>i|j\tk"), "a b c d e f g h i j k");
    EXPECT_EQ(fileName(" Piñones nº 1. . "), "Piñones nº 1");
    EXPECT_EQ(fileName("///"), "");
    EXPECT_EQ(fileName(std::string(500, 'x')).size(), 120u);
}

TEST(TemporaryPath, WithoutAFolderIsAnErrorThatNamesTheFile) {
    const support::Folder folder;
    support::FolderServices services(folder);
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
    const support::Folder folder;
    support::FolderServices services(folder);
    openDocument(services, "/tmp/a.pdf");
    EXPECT_EQ(services.opened, std::vector<std::string>{"/tmp/a.pdf"});
    for (const int refusal : {0, 2, 31, 32}) {
        services.answer = refusal;
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
    const support::Folder folder;
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

TEST(NewFile, ThatCannotTakeItsNameIsAnErrorThatNamesIt) {
    const support::Folder folder;
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
    const support::Folder folder;
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
