#include "acceptance_steps.h"

#include <array>

namespace velmora::tracking {

namespace {

/// Insert and commit of each row of the route.
constexpr std::array<std::pair<int, int>, 4> routeRows{{
    {insertFirstCut, commitFirstCut},
    {insertSecondCut, commitSecondCut},
    {insertFirstLabour, commitFirstLabour},
    {insertSecondLabour, commitSecondLabour},
}};

}  // namespace

int routePositionOf(int operation) {
    int position = 0;
    for (const auto& [insert, commitOfRow] : routeRows) {
        ++position;
        if (operation == insert || operation == commitOfRow) {
            return position;
        }
    }
    return 0;
}

std::string writtenBefore(int operation) {
    std::string route;
    int position = 0;
    for (const auto& [insert, commitOfRow] : routeRows) {
        ++position;
        route += operation > commitOfRow ? std::to_string(position) : "";
    }
    return std::string("order ") + (operation > commit ? "1" : "0") + ", proposal " +
           (operation > mark ? "1" : "pending") + ", sprocket " + (operation > insertSprocket ? "1" : "0") +
           ", materials " +
           (operation > insertHub    ? "2"
            : operation > insertDisc ? "1"
                                     : "0") +
           ", route " + (route.empty() ? "-" : route);
}

std::string written(sql::Connection& database) {
    const auto count = [&](const char* table) {
        return rowsOf(database, std::string("select count(*) from ") + table);
    };
    const std::string order = rowsOf(database, "select DPI_Orden from DPI where not DPI_FAcepta is null");
    std::string route = rowsOf(database, "select RUT_pos from RUT order by RUT_pos");
    std::erase(route, '\n');
    return "order " + count("ORDEN") + ", proposal " + (order.empty() ? "pending" : order) + ", sprocket " +
           count("OrdPiñones") + ", materials " + count("Mat") + ", route " + (route.empty() ? "-" : route);
}

std::string seen(const AcceptanceShop& shop) {
    std::string all;
    for (const screen::MessageBox& box : shop.screen.messages) {
        if (box.buttons == screen::Buttons::ok) {
            all += box.text;
        }
    }
    for (const runtime::RuntimeError& error : shop.errors) {
        all += "error " + std::to_string(error.number());
    }
    return all;
}

std::string errorOf(long number) {
    return "error " + std::to_string(number);
}

}  // namespace velmora::tracking
