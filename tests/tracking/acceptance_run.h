#pragma once
// Acceptances of proposals in a shop of their own, for the tests of what they write and tell.

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acceptance_shop.h"

namespace velmora::tracking {

inline const std::string asked = "Realmente desea marcar como aceptado este presupuesto";
inline const std::string done = "Presupuesto Aceptado, Orden de trabajo nº 1 generada ";

class AcceptanceTest : public ::testing::Test {
  protected:
    /// Accepts one proposal with these columns; an error fails the test.
    void accepted(const Columns& columns = {}) {
        id = shop.addProposal(columns);
        shop.chooseAndAccept(id);
        EXPECT_THAT(shop.errorTexts(), ::testing::IsEmpty());
    }
    std::string query(std::string_view sql) { return shop.query(sql); }
    std::vector<std::string> logged(std::string_view part) {
        std::vector<std::string> found;
        for (const std::string& entry : shop.connection.log()) {
            if (entry.find(part) != std::string::npos) {
                found.push_back(entry);
            }
        }
        return found;
    }
    screen::TextBox& panel(Detail field) { return shop.fields.txtPesu(field); }

    AcceptanceShop shop;
    std::int32_t id = 0;
};

}  // namespace velmora::tracking
