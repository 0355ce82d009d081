#include "velmora/tracking/credit_gate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acceptance_shop.h"
#include "support/scripted_connection.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;

const std::string debtOf =
    "SELECT (select isnull(round(sum(rec_importe),2),0) FROM REC where rec_sit IN('1','2','3','4') AND Rec_IdClPr = "
    "cli.cli_id)  +  (SELECT isnull(round(sum(lav_importe),2),0) From Cav INNER JOIN Lav ON Cav_Id = LAv_Idcav WHERE "
    "(Cav_Situa =1 or Cav_Situa =3) and cav_idcli = cli.cli_id) AS TOTAL, CLI_ImpMaxRiesgo,Cli_Riesgo FROM Cli WHERE "
    "CLI_COD = ";

class CreditGateTest : public ::testing::Test {
  protected:
    bool exceeded(std::int32_t code, double amount) { return FnRiesgoExcedido(shop.connection, code, amount); }
    void receipt(const char* amount, const char* situation, int customerId) {
        shop.change(std::string("INSERT INTO REC (REC_IMPORTE,REC_SIT,REC_IdClPr) VALUES (") + amount + ",'" +
                    situation + "'," + std::to_string(customerId) + ")");
    }
    void note(int id, int situation, int customerId, const char* amount) {
        shop.change("INSERT INTO Cav (Cav_Id,Cav_Situa,Cav_IdCli) VALUES (" + std::to_string(id) + "," +
                    std::to_string(situation) + "," + std::to_string(customerId) + ")");
        shop.change("INSERT INTO Lav (Lav_Idcav,Lav_Importe) VALUES (" + std::to_string(id) + "," + amount + ")");
    }
    /// The result of the credit check for one row.
    static bool answered(const sql::Value& total, const sql::Value& limit, const sql::Value& controlled,
                         double amount) {
        support::ScriptedConnection connection;
        connection.answer(debtOf + "5", {"TOTAL", "CLI_ImpMaxRiesgo", "Cli_Riesgo"}, {{total, limit, controlled}});
        return FnRiesgoExcedido(connection, 5, amount);
    }

    AcceptanceShop shop;
};

TEST_F(CreditGateTest, AsksOneStatementToTheLetter) {
    exceeded(1002, 1);
    EXPECT_THAT(shop.connection.log(), ElementsAre(debtOf + "1002"));
}

TEST_F(CreditGateTest, ACodeThatNobodyHasIsExceeded) {
    EXPECT_TRUE(exceeded(9999, 0));
    EXPECT_TRUE(exceeded(9999, 100));
    EXPECT_FALSE(exceeded(1001, 0)) << "a customer who owes nothing is let through";
}

TEST_F(CreditGateTest, ATotalBelowAtAndAboveTheLimit) {
    EXPECT_FALSE(exceeded(1002, 999.99));
    EXPECT_TRUE(exceeded(1002, 1000)) << "at the limit";
    EXPECT_TRUE(exceeded(1002, 1000.01));
}

TEST_F(CreditGateTest, ANullLimitOfAControlledCustomerAlwaysBlocks) {
    EXPECT_TRUE(exceeded(1003, 0));
    EXPECT_TRUE(exceeded(1003, 0.01));
}

TEST_F(CreditGateTest, WithoutControlEveryDebtPasses) {
    receipt("1000000", "1", 1);
    EXPECT_FALSE(exceeded(1001, 5000000));
    shop.change("UPDATE CLI SET CLI_Riesgo = NULL WHERE CLI_COD = 1002");
    EXPECT_FALSE(exceeded(1002, 5000)) << "null is no control";
}

TEST_F(CreditGateTest, TheAmountOfTheProposalCounts) {
    receipt("600", "1", 2);
    EXPECT_FALSE(exceeded(1002, 399.99));
    EXPECT_TRUE(exceeded(1002, 400));
}

TEST_F(CreditGateTest, ReceiptsOfSituationOneToFourAreDebt) {
    receipt("100", "1", 2);
    receipt("100", "2", 2);
    receipt("100", "3", 2);
    receipt("100", "4", 2);
    receipt("9000", "0", 2);
    receipt("9000", "5", 2);
    receipt("9000", "1", 1);
    EXPECT_FALSE(exceeded(1002, 599.99));
    EXPECT_TRUE(exceeded(1002, 600));
}

TEST_F(CreditGateTest, DeliveryNotesOfSituationOneAndThreeAreDebt) {
    note(1, 1, 2, "200");
    note(2, 3, 2, "300");
    note(3, 2, 2, "9000");
    note(4, 0, 2, "9000");
    note(5, 1, 3, "9000");
    EXPECT_FALSE(exceeded(1002, 499.99));
    EXPECT_TRUE(exceeded(1002, 500));
}

TEST_F(CreditGateTest, EachSumIsRoundedToCentsByItself) {
    receipt("499.996", "1", 2);
    note(1, 1, 2, "499.996");
    EXPECT_TRUE(exceeded(1002, 0)) << "500,00 and 500,00";
}

TEST_F(CreditGateTest, ADebtThatIsNullLeavesTheAmountOut) {
    EXPECT_FALSE(answered({}, 1000.0, 1, 5000)) << "0 stands against the limit";
    EXPECT_TRUE(answered(0.0, 1000.0, 1, 5000)) << "a debt of zero leaves it in";
    EXPECT_TRUE(answered({}, {}, 1, 5000)) << "0 against 0";
}

TEST_F(CreditGateTest, AnyValueButZeroAndNullIsControl) {
    for (const sql::Value& controlled : {sql::Value(1), sql::Value(-1), sql::Value(2), sql::Value(true)}) {
        EXPECT_TRUE(answered(500.0, 100.0, controlled, 1)) << controlled.toText();
    }
    for (const sql::Value& free : {sql::Value(0), sql::Value(false), sql::Value()}) {
        EXPECT_FALSE(answered(500.0, 100.0, free, 1));
    }
}

TEST_F(CreditGateTest, ControlIsNotOnlyTheLanguagesTrue) {
    EXPECT_TRUE(answered(500.0, 100.0, 1, 1)) << "the language's true is -1; hosts store 1";
}

TEST_F(CreditGateTest, AFailingStatementGoesUp) {
    shop.connection.refuse(0);
    EXPECT_THROW(exceeded(1002, 1), sql::DbError);
}

TEST_F(CreditGateTest, FinancingChargesAreTheCustomers) {
    EXPECT_EQ(FnGastosFinancieros(shop.connection, 1001), 1.5);
    EXPECT_EQ(FnGastosFinancieros(shop.connection, 1002), 0) << "null";
    EXPECT_EQ(FnGastosFinancieros(shop.connection, 9999), 0) << "nobody";
    EXPECT_EQ(shop.connection.log().front(), "Select CLI_GtosFinan from cli where cli_cod=1001");
    shop.connection.refuse(3);
    EXPECT_THROW(FnGastosFinancieros(shop.connection, 1001), sql::DbError);
}

}  // namespace
}  // namespace velmora::tracking
