#include "velmora/services/document_files.h"

#include <csignal>

#include <gmock/gmock.h>
#include <sys/resource.h>

#include "services_bench.h"

namespace velmora::services {
namespace {

namespace fs = std::filesystem;

/// The number and the description of the error that a deed raises; nothing without one.
std::string errorOf(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const runtime::RuntimeError& error) {
        return std::to_string(error.number()) + " " + error.description();
    }
    return {};
}

/// No file grows beyond this while it lives: a disk that is full.
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
    for (const char* refused : {"", "..", ".", "planos/", "planos/..", "a\nb.pdf", "a\x7f.pdf", "\t"}) {
        EXPECT_EQ(errorOf([&] { safeFileName(refused); }), "52 El nombre del documento no es un nombre de fichero")
            << refused;
    }
    EXPECT_FALSE(errorOf([] { safeFileName(std::string_view("a\0b.pdf", 7)); }).empty());
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
