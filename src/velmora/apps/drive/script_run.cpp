#include "script_run.h"

#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/apps/script_stage/own_instance.h"
#include "velmora/apps/script_stage/stage.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/platform/desk.h"

#include "table_operations.h"

namespace velmora::drive {

namespace {

using script_stage::Options;

std::unique_ptr<script::ScriptServices> servicesOf(const Options& options, script::Journal& journal,
                                                   script::Answers& answers) {
    return options.keep ? std::make_unique<script::ScriptServices>(journal, answers, *options.keep)
                        : std::make_unique<script::ScriptServices>(journal, answers);
}

script::Status play(const Options& options, std::istream& in) {
    script_stage::Stage stage(options);

    script::Journal journal(std::cout);
    script::Answers answers;
    script::ScriptScreen screen(journal, answers);
    const std::unique_ptr<script::ScriptServices> services = servicesOf(options, journal, answers);
    components::ComponentFactory components;
    stand_ins::registerStandIns(components, screen, *services, stage.clock());
    platform::Desk desk{screen, components, *services, stage.clock()};

    if (options.traceSql) {
        stage.program().onStatement(
            [&](std::string_view statement) { journal.line("sql> " + std::string(statement)); });
    }
    script_stage::OwnInstance instance(desk, stage.session());
    script::Operations operations = script::operationsOf(instance);
    addTables(operations, stage.session(), desk);

    script::ScriptReader reader(in);
    const auto tell = [&](std::string_view reason) {
        std::cout.flush();
        std::cerr << options.script << ": " << reason << '\n';
    };
    script::Interpreter interpreter({journal, answers, screen, stage.program(), stage.engine(), operations}, reader,
                                    tell);
    return interpreter.run();
}

}  // namespace

script::Status runScript(const Options& options) {
    if (options.script == "-") {
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
