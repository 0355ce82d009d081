// What documents tell of the program is what the program tells of itself: keys in the guide, licences in the list of
// third parties.

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "velmora/apps/desktop/about_form.h"
#include "velmora/apps/desktop/start_form.h"
#include "velmora/apps/desktop/table_forms.h"
#include "velmora/platform/toolkit/key_sheet.h"

#include "support/proposal_workshop.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAreArray;

std::vector<std::string> linesOf(const char* file) {
    std::ifstream stream(std::string(VELMORA_SOURCE_DIR "/") + file);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

// --- Keys ----------------------------------------------------------------------------------------------------------

/// Words of the guide for keys that the sheet names otherwise.
std::string asOnTheSheet(const std::string& key) {
    static const std::map<std::string, std::string> names{{"Esc", "ESC"}, {"Intro", "Enter"}};
    const auto found = names.find(key);
    return found != names.end() ? found->second : key;
}

/// The keys of the guide's table with this heading, each by itself; arrows are those of any list.
std::set<std::string> keysOfGuide(const std::string& heading) {
    std::set<std::string> keys;
    bool inTable = false;
    const std::regex bold(R"(\*\*([^*]+)\*\*)");
    for (const std::string& line : linesOf("docs/guia.md")) {
        if (line == "| tecla | " + heading + " |") {
            inTable = true;
        } else if (inTable && !line.starts_with("|")) {
            break;
        } else if (inTable) {
            const std::string first = line.substr(0, line.find('|', 1));
            for (auto it = std::sregex_iterator(first.begin(), first.end(), bold); it != std::sregex_iterator(); ++it) {
                const std::string key = (*it)[1];
                if (key != "↑" && key != "↓") {
                    keys.insert(asOnTheSheet(key));
                }
            }
        }
    }
    return keys;
}

/// The keys of the form alone: not those of every form, and not the letters of its buttons.
std::set<std::string> keysOfSheet(const screen::Form& form) {
    std::set<std::string> keys;
    for (const toolkit::KeyLine& line : toolkit::keyLines(form)) {
        std::string rest = line.keys;
        if (rest == "Enter, Tab" || rest.starts_with("Alt+")) {
            continue;
        }
        for (std::size_t comma = 0; comma != std::string::npos; rest.erase(0, comma + 2)) {
            comma = rest.find(", ");
            const std::string key = rest.substr(0, comma);
            const bool own = key == "ESC" || key == "Enter" || (key.starts_with("Ctrl+") && key.size() == 6) ||
                             (key.starts_with("F") && key != "Flechas");
            if (own) {
                keys.insert(key);
            }
            if (comma == std::string::npos) {
                break;
            }
        }
    }
    return keys;
}

class ToldKeys : public ::testing::Test {
  protected:
    support::ProposalWorkshop workshop;
    shell::VMORA vmora{workshop.desk};
};

TEST_F(ToldKeys, OfTheStartWindowAreThoseOfItsSheet) {
    const StartForm form(workshop.desk, vmora, workshop.session, nullptr);
    EXPECT_THAT(keysOfGuide("en la ventana de inicio"), ElementsAreArray(keysOfSheet(form)));
}

TEST_F(ToldKeys, OfTheProposalAreThoseOfItsSheet) {
    EXPECT_THAT(keysOfGuide("en la propuesta"), ElementsAreArray(keysOfSheet(workshop.form())));
}

TEST_F(ToldKeys, OfTheWorkshopsDataAreThoseOfTheirSheets) {
    const std::set<std::string> withoutReference = [] {
        std::set<std::string> keys = keysOfGuide("en los datos");
        EXPECT_EQ(keys.erase("F1"), 1U);
        return keys;
    }();
    int withReference = 0;
    for (const WindowPicture& picture : tablePictures(workshop.session, workshop.desk)) {
        std::set<std::string> keys = keysOfSheet(*picture.make());
        withReference += static_cast<int>(keys.erase("F1"));
        EXPECT_THAT(withoutReference, ElementsAreArray(keys)) << picture.name;
    }
    EXPECT_GT(withReference, 0);
}

// --- Licences ------------------------------------------------------------------------------------------------------

struct Library {
    std::string name;
    std::string usedBy;
    std::string licence;
};

std::vector<Library> thirdParties() {
    std::vector<Library> libraries;
    const std::regex row(R"(\| ([^|]+) \| ([^|]+) \| ([^|]+) \| ([^|]+) \|)");
    std::smatch parts;
    for (const std::string& line : linesOf("THIRD-PARTY.md")) {
        if (std::regex_match(line, parts, row) && parts[1] != "library") {
            libraries.push_back({.name = parts[1], .usedBy = parts[2], .licence = parts[3]});
        }
    }
    return libraries;
}

/// "LGPL-2.1 o posterior" as "LGPL-2.1+".
std::string inEnglish(std::string licence) {
    licence = std::regex_replace(licence, std::regex("BSD de ([0-9]) cláusulas"), "BSD-$1-Clause");
    licence = std::regex_replace(licence, std::regex(" o posterior"), "+");
    licence = std::regex_replace(licence, std::regex("dominio público"), "public domain");
    return licence.substr(0, licence.find_first_of(",;"));
}

/// "Qt 6 (Core, Gui)" and "SANE, solo en velmora-scan" by their first word.
std::string firstWord(const std::string& name) {
    return name.substr(0, name.find_first_of(" ,("));
}

TEST(ToldLicences, OfTheAboutWindowAreThoseOfTheListOfThirdParties) {
    const auto rows = support::makeWorkshopDatabase();
    const std::string text = aboutText(*rows, {});
    const std::regex line("([^\r\n:]+): ([^\r\n]+)");
    std::map<std::string, std::string> told;
    const std::string list = text.substr(text.find("Bibliotecas"));
    for (auto it = std::sregex_iterator(list.begin(), list.end(), line); it != std::sregex_iterator(); ++it) {
        told[firstWord((*it)[1])] = inEnglish((*it)[2]);
    }
    EXPECT_GE(told.size(), 7U);
    const std::vector<Library> libraries = thirdParties();
    for (const auto& [name, licence] : told) {
        EXPECT_TRUE(std::ranges::any_of(libraries,
                                        [&](const Library& library) {
                                            return firstWord(library.name) == name &&
                                                   library.licence.find(licence) != std::string::npos;
                                        }))
            << name << ": " << licence;
    }
    for (const Library& library : libraries) {
        const bool inProgram = std::ranges::none_of(
            std::vector<std::string>{"velmora.dll", "tests", "bench/", "win32"},
            [&](const std::string& other) { return library.usedBy.find(other) != std::string::npos; });
        EXPECT_TRUE(!inProgram || told.contains(firstWord(library.name))) << library.name;
    }
}

}  // namespace
}  // namespace velmora::desktop
