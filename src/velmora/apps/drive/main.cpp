#include <exception>
#include <iostream>

#include "velmora/apps/engines/hidden_value.h"
#include "velmora/apps/script_stage/database.h"
#include "velmora/apps/script_stage/options.h"

#include "script_run.h"

namespace {

/// Exit status in addition to those of a script: a defect of the program itself.
constexpr int defect = 4;

}  // namespace

int main(int argc, char** argv) {
    using namespace velmora;
    const auto options = script_stage::readOptions(argc, argv);
    engines::hideValue("--dsn", argc, argv);
    if (const int* status = std::get_if<int>(&options)) {
        return *status;
    }
    try {
        return static_cast<int>(drive::runScript(std::get<script_stage::Options>(options)));
    } catch (const script_stage::NoDatabase& e) {
        std::cerr << "velmora-drive: " << e.what() << '\n';
        return static_cast<int>(script::Status::wrong);
    } catch (const std::exception& e) {
        std::cout.flush();
        std::cerr << "velmora-drive: unexpected: " << e.what() << '\n';
        return defect;
    }
}
