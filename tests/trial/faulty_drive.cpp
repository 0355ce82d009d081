// velmora-drive with a connection that refuses a statement, or is lost at one. Told by the environment:
//
//   TRIAL_STATEMENT  count | refuse | lose-before | lose-behind
//   TRIAL_AT         which statement, begin, commit, rollback or write through a set, from 0
//   TRIAL_MARK       counting begins when this line has been printed; none: at once
//   TRIAL_UNTIL      everything works again when this line has been printed
//   TRIAL_LOG        a file for what was counted, one a line

#include <charconv>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/adapters/script/watched_connection.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/script_stage/database.h"
#include "velmora/apps/script_stage/options.h"
#include "velmora/apps/script_stage/own_instance.h"
#include "velmora/apps/stand_ins/stand_ins.h"
#include "velmora/platform/desk.h"

#include "support/faulty_connection.h"

namespace {

using namespace velmora;

constexpr int defect = 4;

std::string textOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

int numberOf(const char* variable) {
    const std::string text = textOf(variable);
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Passes on to the standard output, and calls for each part that it passes on.
class Told final : public std::stringbuf {
  public:
    explicit Told(std::function<void(std::string_view)> listener) : listener_(std::move(listener)) {}
    ~Told() override { Told::sync(); }

  private:
    int sync() override {
        const std::string text = str();
        str("");
        std::cout << text << std::flush;
        listener_(text);
        return 0;
    }

    std::function<void(std::string_view)> listener_;
};

void arm(support::FaultyConnection& faulty) {
    faulty.count();
    const std::string fault = textOf("TRIAL_STATEMENT");
    const int at = numberOf("TRIAL_AT");
    if (fault == "refuse") {
        faulty.refuse(at);
    } else if (fault == "lose-before") {
        faulty.loseAt(at);
    } else if (fault == "lose-behind") {
        faulty.loseAfter(at);
    }
}

void writeLog(const support::FaultyConnection& faulty) {
    if (const std::string file = textOf("TRIAL_LOG"); !file.empty()) {
        std::ofstream log(file, std::ios::app);
        for (int i = 0; i < faulty.operations(); ++i) {
            log << i << " statement " << faulty.log()[static_cast<std::size_t>(i)].substr(0, 100) << '\n';
        }
    }
}

int play(const script_stage::Options& options, std::istream& in) {
    const script::FixedClock clock(options.now.value_or(runtime::Date::of(2026, 1, 15, 10, 0, 0)));
    const auto engine = script_stage::openDatabase(options, clock);
    support::FaultyConnection faulty(*engine);
    faulty.refusedEndUndoes = true;
    faulty.countsWritesThroughSets = true;
    script::WatchedConnection program(faulty);
    adapters::StandInSession session(program);

    const std::string mark = textOf("TRIAL_MARK");
    const std::string until = textOf("TRIAL_UNTIL");
    bool isArmed = false;
    Told told([&](std::string_view text) {
        if (!isArmed && text.find(mark) != std::string_view::npos) {
            isArmed = true;
            arm(faulty);
        } else if (!until.empty() && text.find(until) != std::string_view::npos) {
            faulty.restore();
        }
    });
    std::ostream out(&told);
    if (mark.empty()) {
        isArmed = true;
        arm(faulty);
    }

    script::Journal journal(out);
    script::Answers answers;
    script::ScriptScreen screen(journal, answers);
    script::ScriptServices services(journal, answers);
    components::ComponentFactory components;
    stand_ins::registerStandIns(components, screen, services, clock);
    platform::Desk desk{screen, components, services, clock};
    script_stage::OwnInstance instance(desk, session);
    const script::Operations operations = script::operationsOf(instance);
    script::ScriptReader reader(in);
    const auto tell = [&](std::string_view reason) { std::cerr << options.script << ": " << reason << '\n'; };
    script::Interpreter interpreter({journal, answers, screen, program, *engine, operations}, reader, tell);
    const script::Status status = interpreter.run();
    writeLog(faulty);
    if (faulty.transactionOpen()) {
        std::cerr << "a transaction is open at the end\n";
        return defect;
    }
    return static_cast<int>(status);
}

}  // namespace

int main(int argc, char** argv) {
    const auto options = script_stage::readOptions(argc, argv);
    if (const int* status = std::get_if<int>(&options)) {
        return *status;
    }
    const auto& chosen = std::get<script_stage::Options>(options);
    try {
        if (chosen.script == "-") {
            return play(chosen, std::cin);
        }
        std::ifstream file(chosen.script, std::ios::binary);
        return play(chosen, file);
    } catch (const script_stage::NoDatabase& e) {
        std::cerr << e.what() << '\n';
        return static_cast<int>(script::Status::wrong);
    } catch (const std::exception& e) {
        std::cerr << "unexpected: " << e.what() << '\n';
        return defect;
    }
}
