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
    const support::TemporaryFolder folder;
    for (const std::string& stored : {std::string("a\nb.pdf"), std::string(300, 'x') + ".dwg", std::string("\x01"),
                                      std::string("\x1B[31mrojo.pdf")}) {
        const std::string path = folder.file(safeFileName(stored));
        writeFile(path, bytes("x"));
        EXPECT_EQ(contentOf(path), "x");
    }
}

TEST(DocumentFilesTest, OneFileIsKnownUnderEveryPathToIt) {
    const support::TemporaryFolder folder;
    const std::string file = write(folder.file("taller.db"), "x");
    fs::create_directory(folder.file("sub"));
    fs::create_symlink("taller.db", folder.file("enlace"));
    fs::create_symlink("enlace", folder.file("doble"));
    fs::create_hard_link(file, folder.file("duro"));
    write(folder.file("copia.db"), "x");
    for (const char* same : {"taller.db", "sub/../taller.db", ".//taller.db", "enlace", "doble", "duro"}) {
        EXPECT_TRUE(isSameFile(folder.file(same), file)) << same;
    }
    for (const char* other : {"copia.db", "falta.db", "sub"}) {
        EXPECT_FALSE(isSameFile(folder.file(other), file)) << other;
    }
    EXPECT_FALSE(isSameFile("", file));
    EXPECT_FALSE(isSameFile(folder.file("falta.db"), folder.file("falta.db"))) << "what is not there is no file";
}

TEST(DocumentFilesTest, AFileIsReadAndWrittenByteForByte) {
    const support::TemporaryFolder folder;
    std::string every;
    for (int i = 0; i < 256; ++i) {
        every += static_cast<char>(i);
    }
    writeFile(folder.file("señal.bin"), bytes(every));
    EXPECT_EQ(contentOf(folder.file("señal.bin")), every);
    EXPECT_EQ(readFile(folder.file("señal.bin")), bytes(every));
    writeFile(folder.file("señal.bin"), bytes("x"));
    EXPECT_EQ(contentOf(folder.file("señal.bin")), "x") << "an earlier copy is replaced whole";
    writeFile(folder.file("vacio"), {});
    EXPECT_EQ(contentOf(folder.file("vacio")), "");
    EXPECT_EQ(readFile(folder.file("vacio")), sql::Bytes{});
}

TEST(DocumentFilesTest, WhatCannotBeReadIsNamed) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { readFile(folder.file("falta.pdf")); }),
              "3002 No se puede leer el fichero " + folder.file("falta.pdf"));
    fs::create_directory(folder.file("carpeta"));
    EXPECT_EQ(errorOf([&] { readFile(folder.file("carpeta")); }),
              "3002 No se puede leer el fichero " + folder.file("carpeta"));
    EXPECT_FALSE(errorOf([] { readFile(""); }).empty());
}

TEST(DocumentFilesTest, WhatCannotBeWrittenIsNamedAndLeavesNothing) {
    const support::TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { writeFile(folder.file("no/hay.pdf"), bytes("x")); }),
              "3004 No se puede escribir el fichero " + folder.file("no/hay.pdf"));
    fs::create_directory(folder.file("carpeta"));
    EXPECT_FALSE(errorOf([&] { writeFile(folder.file("carpeta"), bytes("x")); }).empty());
    EXPECT_TRUE(fs::is_directory(folder.file("carpeta")));
    const FullDisk full(100000);
    EXPECT_EQ(errorOf([&] { writeFile(folder.file("grande.pdf"), sql::Bytes(300000)); }),
              "3004 No se puede escribir el fichero " + folder.file("grande.pdf"));
    EXPECT_FALSE(exists(folder.file("grande.pdf"))) << "half a document is none";
}

TEST(DocumentFilesTest, ALinkInTheWayIsReplacedAndNotFollowed) {
    const support::TemporaryFolder folder;
    write(folder.file("ajeno.txt"), "ajeno");
    fs::create_symlink(folder.file("ajeno.txt"), folder.file("pieza.pdf"));
    writeFile(folder.file("pieza.pdf"), bytes("pieza"));
    EXPECT_EQ(contentOf(folder.file("ajeno.txt")), "ajeno");
    EXPECT_EQ(contentOf(folder.file("pieza.pdf")), "pieza");
    EXPECT_FALSE(fs::is_symlink(folder.file("pieza.pdf")));
}

TEST(DocumentFilesTest, AFileClosedToWritingIsNotDeleted) {
    const support::TemporaryFolder folder;
    write(folder.file("abierto.pdf"), "x");
    write(folder.file("cerrado.pdf"), "x");
    fs::permissions(folder.file("cerrado.pdf"), fs::perms::owner_read);
    for (const char* name : {"abierto.pdf", "cerrado.pdf", "falta.pdf"}) {
        EXPECT_NO_THROW(deleteFile(folder.file(name)));
    }
    EXPECT_FALSE(exists(folder.file("abierto.pdf")));
    EXPECT_TRUE(exists(folder.file("cerrado.pdf")));
    fs::create_directory(folder.file("carpeta"));
    deleteFile(folder.file("carpeta"));
    EXPECT_TRUE(exists(folder.file("carpeta")));
}

}  // namespace
}  // namespace velmora::services
