#include "velmora/services/document_files.h"

#include <csignal>

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

namespace fs = std::filesystem;

/// Number and description of the error that `deed` raises; empty without an error.
std::string errorOf(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const runtime::RuntimeError& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return {};
}

/// Limits the size of files for the duration of its lifetime, to simulate a full disk.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{.rlim_cur = bytes, .rlim_max = before_.rlim_max};
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST(DocumentFilesTest, TheNameFollowsTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(nameOfFile("C:\\planos\\pieza.dwg"), "pieza.dwg");
    EXPECT_EQ(nameOfFile("/home/ana/pieza.dwg"), "pieza.dwg");
    EXPECT_EQ(nameOfFile("pieza.dwg"), "pieza.dwg") << "without a separator the whole text is the name";
    EXPECT_EQ(nameOfFile("/home/ana/"), "");
    EXPECT_EQ(nameOfFile("/tmp/año\\señal.pdf"), "señal.pdf");
}

TEST(DocumentFilesTest, TheExtensionFollowsTheLastPointOfTheName) {
    EXPECT_EQ(extensionOfFile("/tmp/pieza.dwg"), "dwg");
    EXPECT_EQ(extensionOfFile("/tmp/pieza.tar.gz"), "gz");
    EXPECT_EQ(extensionOfFile("/tmp/pieza"), "");
    EXPECT_EQ(extensionOfFile("/planos.2026/pieza"), "") << "a folder's point is not the file's";
    EXPECT_EQ(extensionOfFile("pieza."), "");
}

TEST(DocumentFilesTest, AStoredNameNeverLeadsOutOfItsFolder) {
    EXPECT_EQ(safeFileName("pieza 7ª.pdf"), "pieza 7ª.pdf");
    EXPECT_EQ(safeFileName("../../etc/passwd"), "passwd");
    EXPECT_EQ(safeFileName("..\\..\\arranque.exe"), "arranque.exe");
    EXPECT_EQ(safeFileName("/etc/passwd"), "passwd");
    for (const char* refused : {"", "..", ".", "planos/", "planos/.."}) {
        EXPECT_EQ(errorOf([&] { safeFileName(refused); }), "52 El nombre del documento no es un nombre de fichero")
            << refused;
    }
}

TEST(DocumentFilesTest, ControlCharactersOfAStoredNameBecomeBlanks) {
    EXPECT_EQ(safeFileName("a\nb.pdf"), "a b.pdf");
    EXPECT_EQ(safeFileName("a\x7f.pdf"), "a .pdf");
    EXPECT_EQ(safeFileName(std::string_view("a\0b.pdf", 7)), "a b.pdf");
    EXPECT_EQ(safeFileName("a\xC2\x85z\xC2\xA0.pdf"), "a z\xC2\xA0.pdf") << "those of two bytes too";
    EXPECT_EQ(safeFileName("\tplano.pdf\r\n"), "plano.pdf") << "at the ends they go: the extension stays";
    EXPECT_EQ(safeFileName(" plano.pdf"), " plano.pdf") << "a name without them stays as it is";
    for (const char* bare : {"\t", "\x01\x02", ".\n", "\n..", "\x7f .. \x7f"}) {
        EXPECT_EQ(safeFileName(bare), "documento") << bare;
    }
}

TEST(DocumentFilesTest, ANameTooLongForAFileSystemIsCutBeforeItsExtension) {
    EXPECT_EQ(safeFileName(std::string(251, 'a') + ".pdf"), std::string(251, 'a') + ".pdf") << "255 bytes fit";
    EXPECT_EQ(safeFileName(std::string(252, 'a') + ".pdf"), std::string(251, 'a') + ".pdf");
    EXPECT_EQ(safeFileName(std::string(400, 'a')), std::string(255, 'a'));
    EXPECT_EQ(safeFileName("a." + std::string(400, 'e')), "a." + std::string(253, 'e')) << "no extension at all";
    std::string wide;
    for (int i = 0; i < 200; ++i) {
        wide += "ñ";
    }
    // 251 bytes would cut a character.
    EXPECT_EQ(safeFileName(wide + ".pdf"), wide.substr(0, 250) + ".pdf");
    std::string emoji;
    for (int i = 0; i < 100; ++i) {
        emoji += "😀";
    }
    EXPECT_EQ(safeFileName(emoji), emoji.substr(0, 252));
}

TEST(DocumentFilesTest, EveryFittedNameCanBeWrittenAndReadBack) {
    const Folder folder;
    for (const std::string& stored : {std::string("a\nb.pdf"), std::string(300, 'x') + ".dwg", std::string("\x01"),
                                      std::string("\x1B[31mrojo.pdf")}) {
        const std::string path = folder / safeFileName(stored);
        writeFile(path, bytes("x"));
        EXPECT_EQ(contentOf(path), "x");
    }
}

TEST(DocumentFilesTest, OneFileIsKnownUnderEveryPathToIt) {
    const Folder folder;
    const std::string file = write(folder / "taller.db", "x");
    fs::create_directory(folder / "sub");
    fs::create_symlink("taller.db", folder / "enlace");
    fs::create_symlink("enlace", folder / "doble");
    fs::create_hard_link(file, folder / "duro");
    write(folder / "copia.db", "x");
    for (const char* same : {"taller.db", "sub/../taller.db", ".//taller.db", "enlace", "doble", "duro"}) {
        EXPECT_TRUE(isSameFile(folder / same, file)) << same;
    }
    for (const char* other : {"copia.db", "falta.db", "sub"}) {
        EXPECT_FALSE(isSameFile(folder / other, file)) << other;
    }
    EXPECT_FALSE(isSameFile("", file));
    EXPECT_FALSE(isSameFile(folder / "falta.db", folder / "falta.db")) << "what is not there is no file";
}

TEST(DocumentFilesTest, AFileIsReadAndWrittenByteForByte) {
    const Folder folder;
    std::string every;
    for (int i = 0; i < 256; ++i) {
        every += static_cast<char>(i);
    }
    writeFile(folder / "señal.bin", bytes(every));
    EXPECT_EQ(contentOf(folder / "señal.bin"), every);
    EXPECT_EQ(readFile(folder / "señal.bin"), bytes(every));
    writeFile(folder / "señal.bin", bytes("x"));
    EXPECT_EQ(contentOf(folder / "señal.bin"), "x") << "an earlier copy is replaced whole";
    writeFile(folder / "vacio", {});
    EXPECT_EQ(contentOf(folder / "vacio"), "");
    EXPECT_EQ(readFile(folder / "vacio"), sql::Bytes{});
}

TEST(DocumentFilesTest, WhatCannotBeReadIsNamed) {
    const Folder folder;
    EXPECT_EQ(errorOf([&] { readFile(folder / "falta.pdf"); }),
              "3002 No se puede leer el fichero " + (folder / "falta.pdf"));
    fs::create_directory(folder / "carpeta");
    EXPECT_EQ(errorOf([&] { readFile(folder / "carpeta"); }),
              "3002 No se puede leer el fichero " + (folder / "carpeta"));
    EXPECT_FALSE(errorOf([] { readFile(""); }).empty());
}

TEST(DocumentFilesTest, WhatCannotBeWrittenIsNamedAndLeavesNothing) {
    const Folder folder;
    EXPECT_EQ(errorOf([&] { writeFile(folder / "no/hay.pdf", bytes("x")); }),
              "3004 No se puede escribir el fichero " + (folder / "no/hay.pdf"));
    fs::create_directory(folder / "carpeta");
    EXPECT_FALSE(errorOf([&] { writeFile(folder / "carpeta", bytes("x")); }).empty());
    EXPECT_TRUE(fs::is_directory(folder / "carpeta"));
    const FullDisk full(100000);
    EXPECT_EQ(errorOf([&] { writeFile(folder / "grande.pdf", sql::Bytes(300000)); }),
              "3004 No se puede escribir el fichero " + (folder / "grande.pdf"));
    EXPECT_FALSE(exists(folder / "grande.pdf")) << "half a document is none";
}

TEST(DocumentFilesTest, ALinkInTheWayIsReplacedAndNotFollowed) {
    const Folder folder;
    write(folder / "ajeno.txt", "ajeno");
    fs::create_symlink(folder / "ajeno.txt", folder / "pieza.pdf");
    writeFile(folder / "pieza.pdf", bytes("pieza"));
    EXPECT_EQ(contentOf(folder / "ajeno.txt"), "ajeno");
    EXPECT_EQ(contentOf(folder / "pieza.pdf"), "pieza");
    EXPECT_FALSE(fs::is_symlink(folder / "pieza.pdf"));
}

TEST(DocumentFilesTest, AFileClosedToWritingIsNotDeleted) {
    const Folder folder;
    write(folder / "abierto.pdf", "x");
    write(folder / "cerrado.pdf", "x");
    fs::permissions(folder / "cerrado.pdf", fs::perms::owner_read);
    for (const char* name : {"abierto.pdf", "cerrado.pdf", "falta.pdf"}) {
        EXPECT_NO_THROW(deleteFile(folder / name));
    }
    EXPECT_FALSE(exists(folder / "abierto.pdf"));
    EXPECT_TRUE(exists(folder / "cerrado.pdf"));
    fs::create_directory(folder / "carpeta");
    deleteFile(folder / "carpeta");
    EXPECT_TRUE(exists(folder / "carpeta"));
}

}  // namespace
}  // namespace velmora::services
