#include "velmora/adapters/documents/files.h"

#include <QFile>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "velmora/adapters/painting/text.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/failure_words.h"

namespace velmora::documents {

namespace {

namespace fs = std::filesystem;

constexpr long fileAccess = 75;
constexpr long pathNotFound = 76;
constexpr int leastOpened = 33;       ///< what Services answers below this is a failure
constexpr std::size_t longest = 120;  ///< UTF-16 units: leaves room for a folder and an ending

constexpr std::u32string_view refused = U"\\/:*?\"<>|";

fs::path toPath(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string wordsOf(QFileDevice::FileError failure) {
    return failure == QFileDevice::ResourceError ? "No queda sitio en el disco." : "El disco no admite más datos.";
}

}  // namespace

std::string fileName(std::string_view wanted) {
    std::u32string name = runtime::toCodePoints(wanted);
    for (char32_t& c : name) {
        c = c < U' ' || c == 0x7F || refused.find(c) != std::u32string_view::npos ? U' ' : c;
    }
    std::string result = runtime::Left(runtime::Trim(runtime::toUtf8(name)), longest);
    while (!result.empty() && (result.back() == ' ' || result.back() == '.')) {
        result.pop_back();
    }
    return result;
}

std::string temporaryPath(const system::Services& services, std::string_view name) {
    const std::string folder = services.temporaryFolder();
    if (folder.empty()) {
        throw runtime::RuntimeError(pathNotFound, "No hay carpeta temporal en la que escribir " + std::string(name));
    }
    return folder + std::string(name);
}

void openDocument(system::Services& services, std::string_view path) {
    if (services.openWithAssociatedProgram(path) < leastOpened) {
        throw runtime::RuntimeError(fileAccess,
                                    "El documento está escrito, pero ningún programa lo abre:\n" + std::string(path));
    }
}

void refuseToWrite(std::string_view path, std::string_view reason) {
    throw runtime::RuntimeError(fileAccess,
                                "No se puede escribir el fichero\n" + std::string(path) + "\n\n" + std::string(reason));
}

NewFile::NewFile(std::string path) : path_(std::move(path)), draft_(path_ + ".part") {
    const fs::path draft = toPath(draft_);
    std::error_code ignored;
    fs::remove(draft, ignored);
    // Differs D-262: a link that lies in the way is taken away, not followed; "x" refuses one that is laid meanwhile.
    std::FILE* made = std::fopen(draft.c_str(), "wbx");
    if (made == nullptr) {
        refuseToWrite(path_, system::failureWords(std::error_code(errno, std::generic_category())));
    }
    std::fclose(made);
}

NewFile::~NewFile() {
    std::error_code ignored;
    fs::remove(toPath(draft_), ignored);
}

void NewFile::keep() {
    std::error_code failure;
    fs::rename(toPath(draft_), toPath(path_), failure);
    if (failure) {
        refuseToWrite(path_, system::failureWords(failure));
    }
}

std::unique_ptr<NewFile> draftFile(const std::string& path, const std::function<bool(QIODevice&)>& write) {
    auto file = std::make_unique<NewFile>(path);
    QFile out(painting::toQt(file->draft()));
    const bool written = out.open(QIODevice::WriteOnly) && write(out) && out.flush();
    out.close();
    if (!written || out.error() != QFileDevice::NoError) {
        refuseToWrite(path, wordsOf(out.error()));
    }
    return file;
}

void writeFile(const std::string& path, const std::function<bool(QIODevice&)>& write) {
    draftFile(path, write)->keep();
}

}  // namespace velmora::documents
