// A host under Wine: plays one script through the component's members, on our embedded engine.
//
//   host MODULE FOLDER [OPTION…] SCRIPT
//
// MODULE is the module of the stories as Windows names it. FOLDER gets what the program writes, the script's output as
// "output" and the counts of the calls as "traffic". Options and exit status are those of velmora-drive.

#include <array>
#include <cfenv>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "velmora/adapters/script/ending.h"
#include "velmora/apps/script_stage/database.h"
#include "velmora/apps/script_stage/stage.h"
#include "velmora/platform/runtime/dates.h"

#include "component_faces.h"
#include "data_faces.h"
#include "late.h"
#include "player_desk.h"
#include "session_face.h"
#include "variants.h"

namespace {

using namespace velmora;
using namespace velmora::wine_host;

/// Exit status in addition to those of a script: a defect of the program itself.
constexpr int defect = 4;
constexpr int ownArguments = 2;

constexpr CLSID recordsetId{0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x10, 0x04}};
/// What the module of the stories brings, by the number in its identifier.
struct ModuleClass {
    unsigned char number;
    std::string_view progId;
};
constexpr std::string_view playerName = "VELMORASTORIES.Player";
constexpr std::string_view publicClassName = "VELMORASTORIES.VMORA";
constexpr std::array moduleClasses{
    ModuleClass{1, playerName},
    ModuleClass{2, publicClassName},
    ModuleClass{3, "KOLTAR.KOLTARD"},
    ModuleClass{4, "SORVEL.SORVELCOMP"},
};

void registerClasses(const std::string& module) {
    for (const auto& [number, progId] : moduleClasses) {
        const CLSID id{0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x20, number}};
        registerModule(progId, id, module);
    }
}

/// What the player asks of the host besides the session.
Object makeStageFace(script_stage::Stage& stage, const std::string& script) {
    const auto engine = shared(makeConnectionFace(stage.engine()));
    return makeFace({
        {"engine", isGet, [engine](Call& call) { giveObject(call.result(), engine.get()); }},
        {"refusenext", isMethod, [&stage](Call& call) { stage.program().refuseNext(call.text(0)); }},
        {"lose", isMethod, [&stage](Call&) { stage.program().lose(); }},
        {"tell", isMethod, [script](Call& call) { std::cerr << script << ": " << call.text(0) << '\n'; }},
    });
}

void trace(script_stage::Stage& stage, IDispatch& player) {
    stage.program().onStatement([&player](std::string_view statement) {
        if (!isOfTheBorder(statement)) {
            call(player, "Line", "sql> " + std::string(statement));
        }
    });
}

std::string momentText(const std::optional<runtime::Date>& moment) {
    return moment ? runtime::Format(*moment, "yyyy-mm-dd") + " " + runtime::Format(*moment, "hh:nn:ss") : std::string();
}

void putSession(IDispatch& instance, IDispatch* session) {
    std::vector<Held> arguments;
    arguments.emplace_back(session);
    invoke(instance, "MyBd", DISPATCH_PROPERTYPUTREF, std::move(arguments));
}

int play(const std::string& module, const std::filesystem::path& folder, const script_stage::Options& options) {
    script_stage::Stage stage(options);
    const Object connection = makeConnectionFace(stage.program());
    const Object session = makeSessionFace(stage.session(), connection.get());
    const Object stageFace = makeStageFace(stage, options.script);

    registerClasses(module);
    const std::string kept = options.keep.value_or((folder / "written").string());
    std::filesystem::create_directories(kept);
    const Object player = create(playerName);
    call(*player, "Open", options.script, (folder / "output").string(), momentText(options.now), kept);
    if (options.traceSql) {
        trace(stage, *player);
    }

    PlayerScreen screen(*player);
    PlayerServices services(*player, kept + "/");
    const HostDesk desk{
        stage.session(), session.get(),
        screen,          services,
        stage.clock(),   std::getenv("VELMORA_PROGRAMS") == nullptr ? "." : std::getenv("VELMORA_PROGRAMS")};
    ClassObjects classes;
    classes.add("ADODB.Recordset", recordsetId, [&stage] { return makeWritableSetFace(stage.program()); });
    offerComponents(classes, desk);

    const Object instance = create(publicClassName);
    putSession(*instance, session.get());
    const int status = call(*player, "Play", instance.get(), stageFace.get()).value().toLong();
    stage.program().onStatement({});
    return status;
}

void writeTraffic(const std::filesystem::path& folder) {
    std::ofstream out(folder / "traffic");
    out << traffic().calls << ' ' << traffic().lookups << ' ' << traffic().statements << '\n';
}

int run(int argc, char** argv) {
    const std::string module = argv[1];
    const std::filesystem::path folder = argv[2];
    argv[ownArguments] = argv[0];
    const auto options = script_stage::readOptions(argc - ownArguments, argv + ownArguments);
    if (const int* status = std::get_if<int>(&options)) {
        return *status;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int status = play(module, folder, std::get<script_stage::Options>(options));
    writeTraffic(folder);
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    // Wine starts a program with the older floating-point unit at 53 bits, as Windows does. Libraries of this system,
    // the database's among them, read numbers with its 64.
    std::fesetenv(FE_DFL_ENV);
    try {
        return argc <= ownArguments + 1 ? defect : run(argc, argv);
    } catch (const script_stage::NoDatabase& e) {
        std::cerr << "host: " << e.what() << '\n';
        return static_cast<int>(script::Status::wrong);
    } catch (const std::exception& e) {
        std::cerr << "host: unexpected: " << e.what() << '\n';
        return defect;
    }
}
