#include "velmora/adapters/documents/files.h"

#include <QFile>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

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
    if (!std::ofstream(toPath(draft_), std::ios::binary)) {
        refuseToWrite(path_, std::generic_category().message(errno));
    }
}

NewFile::~NewFile() {
    std::error_code ignored;
    fs::remove(toPath(draft_), ignored);
}

void NewFile::keep() {
    std::error_code failure;
    fs::rename(toPath(draft_), toPath(path_), failure);
    if (failure) {
        refuseToWrite(path_, failure.message());
    }
}

void writeFile(const std::string& path, const std::function<bool(QIODevice&)>& write) {
    NewFile file(path);
    QFile out(qt::toQt(file.draft()));
    const bool written = out.open(QIODevice::WriteOnly) && write(out) && out.flush();
    out.close();
    if (!written || out.error() != QFileDevice::NoError) {
        refuseToWrite(path, qt::fromQt(out.errorString()));
    }
    file.keep();
}

}  // namespace velmora::documents
