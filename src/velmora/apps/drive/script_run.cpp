#include "script_run.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/platform/desk.h"

#include "database.h"
#include "operations.h"

namespace velmora::drive {

namespace {

std::unique_ptr<system::Clock> clockOf(const Options& options) {
    if (options.now) {
        return std::make_unique<script::FixedClock>(*options.now);
    }
    return std::make_unique<system::SystemClock>();
}

std::unique_ptr<script::ScriptServices> servicesOf(const Options& options, script::Journal& journal,
                                                   script::Answers& answers) {
    return options.keep ? std::make_unique<script::ScriptServices>(journal, answers, *options.keep)
                        : std::make_unique<script::ScriptServices>(journal, answers);
}

script::Status play(const Options& options, std::istream& in) {
    const std::unique_ptr<system::Clock> clock = clockOf(options);
    const std::unique_ptr<sql::Connection> engine = openDatabase(options, *clock);

    script::Journal journal(std::cout);
    script::Answers answers;
    script::ScriptScreen screen(journal, answers);
    const std::unique_ptr<script::ScriptServices> services = servicesOf(options, journal, answers);
    components::ComponentFactory components;
    stand_ins::registerStandIns(components, screen, *services, *clock);
    platform::Desk desk{screen, components, *services, *clock};

    script::WatchedConnection program(*engine);
    if (options.traceSql) {
        program.onStatement([&](std::string_view statement) { journal.line("sql> " + std::string(statement)); });
    }
    adapters::StandInSession session(program);
    HostOperations host(desk, session);

    script::ScriptReader reader(in);
    const auto tell = [&](std::string_view reason) {
        std::cout.flush();
        std::cerr << options.script << ": " << reason << '\n';
    };
    script::Interpreter interpreter({journal, answers, screen, program, *engine, host.operations()}, reader, tell);
    return interpreter.run();
}

}  // namespace

script::Status runScript(const Options& options) {
    if (options.script == "-") {
        std::cout << std::unitbuf;
        return play(options, std::cin);
    }
    std::ifstream file(options.script, std::ios::binary);
    if (!file) {
        std::cerr << "velmora-drive: cannot read " << options.script << '\n';
        return script::Status::wrong;
    }
    return play(options, file);
}

}  // namespace velmora::drive
