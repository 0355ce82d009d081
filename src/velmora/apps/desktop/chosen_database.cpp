#include "velmora/apps/desktop/chosen_database.h"

#include <QStandardPaths>
#include <array>
#include <fstream>
#include <iterator>
#include <system_error>

#include "velmora/apps/workshop_file/workshop_file.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace {

namespace fs = std::filesystem;

constexpr const char* inMemory = ":memory:";

struct Kind {
    std::string_view name;
    std::string ChosenDatabase::*value;
};

constexpr std::array kinds{Kind{.name = "fichero=", .value = &ChosenDatabase::file},
                           Kind{.name = "servidor=", .value = &ChosenDatabase::server}};

std::optional<std::string> textIn(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string{std::istreambuf_iterator<char>(file), {}};
}

std::string firstLine(const std::string& text) {
    std::string line = text.substr(0, text.find('\n'));
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return runtime::Trim(line);
}

bool holdsPassword(const std::string& connectionString) {
    const std::string capitals = runtime::Replace(runtime::UCase(connectionString), " ", "");
    return capitals.find("PWD=") != std::string::npos || capitals.find("PASSWORD=") != std::string::npos;
}

std::string textOf(const ChosenDatabase& choice) {
    for (const Kind& kind : kinds) {
        if (!(choice.*kind.value).empty()) {
            return std::string(kind.name) + choice.*kind.value + "\n";
        }
    }
    return {};
}

bool write(const fs::path& file, const std::string& text) {
    std::error_code failure;
    fs::create_directories(file.parent_path(), failure);
    fs::path made = file;
    made += ".nuevo";
    {
        std::ofstream stream(made, std::ios::binary | std::ios::trunc);
        fs::permissions(made, fs::perms::owner_read | fs::perms::owner_write, failure);
        stream << text;
        if (!stream.flush()) {
            return false;
        }
    }
    fs::rename(made, file, failure);
    return !failure;
}

}  // namespace

fs::path choiceFile() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return system::filePath((folder + QStringLiteral("/velmora/base-de-datos")).toStdString());
}

std::optional<ChosenDatabase> rememberedChoice(const fs::path& file) {
    const std::optional<std::string> text = textIn(file);
    const std::string line = text ? firstLine(*text) : std::string();
    for (const Kind& kind : kinds) {
        if (line.starts_with(kind.name) && line.size() > kind.name.size()) {
            ChosenDatabase choice;
            choice.*kind.value = line.substr(kind.name.size());
            return choice;
        }
    }
    return std::nullopt;
}

bool rememberChoice(const fs::path& file, const ChosenDatabase& choice) {
    const std::string text = textOf(choice);
    // A path with a line break in it could not be read back.
    const bool oneLine = text.find('\n') + 1 == text.size();
    return !text.empty() && oneLine && !holdsPassword(choice.server) && write(file, text);
}

ChosenDatabase databaseToOpen(const Options& options, const std::optional<ChosenDatabase>& remembered) {
    if (!options.server.empty()) {
        return {.server = options.server};
    }
    if (!options.database.empty()) {
        return {.file = options.database};
    }
    if (!options.pictures.empty()) {
        return {.file = inMemory};
    }
    return remembered.value_or(ChosenDatabase{.file = defaultDatabase()});
}

bool isFirstStart(const ChosenDatabase& choice) {
    if (choice.file.empty() || choice.file == inMemory) {
        return false;
    }
    try {
        return !workshop_file::isThere(choice.file);
    } catch (const workshop_file::Refused& e) {
        throw NoWorkshop(e.what());
    }
}

std::string fileForNew(const ChosenDatabase& choice) {
    const auto isFree = [](const std::string& file) {
        std::error_code failure;
        return !fs::exists(system::filePath(file), failure);
    };
    if (!choice.file.empty() && choice.file != inMemory && isFree(choice.file)) {
        return choice.file;
    }
    const std::string first = defaultDatabase();
    std::string file = first;
    for (int number = 2; !isFree(file); ++number) {
        fs::path numbered = system::filePath(first);
        numbered.replace_filename(numbered.stem().string() + "-" + std::to_string(number) +
                                  numbered.extension().string());
        file = system::fileText(numbered);
    }
    return file;
}

}  // namespace velmora::desktop
