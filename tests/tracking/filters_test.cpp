#include "velmora/tracking/filters.h"

#include <array>

#include <gmock/gmock.h>

#include "tracking_form.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The statement up to its condition.
constexpr const char* everyColumn =
    "select (case when dpi_tipo= 0 then 'Piñon Especial'  when dpi_tipo=1 then 'Disco' when dpi_tipo=2 then 'Piñon 2 "
    "Cubos' when dpi_tipo=3 then 'Poleas Lisas'  when dpi_tipo=4 then 'Piñon Doble' when dpi_tipo=5 then 'Piñon de Dos "
    "Cadenas'  when dpi_tipo=6 then 'Disco Doble' when dpi_tipo=7 then 'Disco de Dos Cadenas'  when dpi_tipo=8 then "
    "'Engranaje Recto' when dpi_tipo=9 then 'Disco Engranaje Recto'  when dpi_tipo=10 then 'Piñon 2 Cubos Variable' "
    "when dpi_tipo=11 then 'Poleas Lisas 2 Cubos Variable'  when dpi_tipo=12 then 'Piñon Triple' when dpi_tipo=13 then "
    "'Cremallera' when dpi_tipo=14 then 'Disco Triple' else '' end) as Tipo,  DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,"
    "DPI_Unidades,DPI_ImpTP,DPI_CodCliente,DPI_NomCliente,dpi.* from DPI ";

class FiltersTest : public TrackingTest {
  protected:
    FiltersTest() { open(); }

    /// Runs the filter and returns the condition that it sent.
    std::string filtered() {
        shop.connection.clear();
        shop.attempt([&] { fields().cmdfiltro.onClick(); });
        return lastCondition();
    }
    std::string byMeasures() {
        shop.connection.clear();
        shop.attempt([&] { fields().XPButton4.onClick(); });
        return lastCondition();
    }
    void put(int index, const char* text) { fields().txtCriterio(index).setText(text); }
    void choose(int type, int state) {
        fields().cboTipoPre.setListIndex(type);
        fields().cboFiltroHistorico.setListIndex(state);
    }
    void clearAll() {
        fields().txtCriterio.forEach([](screen::TextBox& box) { box.setText(""); });
        fields().chkAcopla.setChecked(false);
        choose(0, allStates);
    }
};

// ---- The statement ---------------------------------------------------------------------------------------------

TEST_F(FiltersTest, TheListIsAskedForInTheseWords) {
    EXPECT_THAT(shop.connection.log(),
                ElementsAre(std::string(everyColumn) +
                            " Where  (DPI_id = -1)  AND  ( DPI_FAcepta is null )  Order by DPI_Fecha DESC "));
    EXPECT_EQ(listStatement(" Where 1"), std::string(everyColumn) + " Where 1");
}

/// Every way to fill a pair of fields, with the resulting clause.
struct Filled {
    const char* from;
    const char* to;
    const char* clause;
};
constexpr std::array customers{
    Filled{"", "", ""},
    Filled{"1001", "", " (DPI_CodCliente = 1001 ) "},
    Filled{"", "1003", " (DPI_CodCliente = 1003 ) "},
    Filled{"1001", "1003", " (DPI_CodCliente BETWEEN 1001 and 1003) "},
};
constexpr std::array dates{
    Filled{"", "", ""},
    Filled{"10/01/2026", "", " (DPI_Fecha BETWEEN '10/01/2026 00:00:00' and '10/01/2026 23:59:00') "},
    Filled{"", "12/01/2026", " (DPI_Fecha BETWEEN '12/01/2026 00:00:00' and '12/01/2026 23:59:00') "},
    Filled{"10/01/2026", "12/01/2026", " (DPI_Fecha BETWEEN '10/01/2026 00:00:00' and '12/01/2026 23:59:00') "},
};
constexpr std::array numbers{
    Filled{"", "", ""},
    Filled{"2", "", " (DPI_id = 2 ) "},
    Filled{"", "4", " (DPI_id = 4 ) "},
    Filled{"2", "4", " (DPI_id BETWEEN 2 and 4) "},
};
constexpr std::array couplings{"", " (DPI_acopla = 1 ) "};
constexpr std::array states{" ( not DPI_FAcepta is null ) ", " ( DPI_FAcepta is null ) ", ""};

/// The expected condition for a combination of filters.
std::string conditionOf(std::initializer_list<std::string> clauses, bool firstNumber, int type, int state) {
    std::string where;
    for (const std::string& clause : clauses) {
        if (!clause.empty()) {
            where = where.empty() ? clause : where + " AND " + clause;
        }
    }
    const std::string number = std::to_string(type - 1);
    if (firstNumber) {
        return " Where " + where + " Order by DPI_Fecha DESC";
    }
    const std::string andType = type > 0 ? " AND dpi_tipo=" + number + " " : "";
    if (state < 2) {
        const std::string before = where.empty() ? "" : where + " AND ";
        return " Where " + before + states.at(static_cast<std::size_t>(state)) + andType + " Order by DPI_Fecha DESC ";
    }
    if (!where.empty()) {
        return " Where " + where + andType + " Order by DPI_Fecha DESC";
    }
    return type > 0 ? "where dpi_tipo=" + number + " Order by DPI_Fecha DESC "
                    : "where dpi_id <> 0 Order by DPI_Fecha DESC ";
}

TEST_F(FiltersTest, EveryCombinationSendsItsConditionAndTheDatabaseTakesIt) {
    int combinations = 0;
    for (const Filled& customer : customers) {
        for (const Filled& date : dates) {
            for (const Filled& number : numbers) {
                for (std::size_t coupling = 0; coupling < couplings.size(); ++coupling) {
                    for (const int type : {0, 1, 9}) {
                        for (const int state : {0, 1, 2}) {
                            const Filled* const pairs[] = {&customer, &date, &number};
                            for (int i = 0; i < 3; ++i) {
                                put(2 * i, pairs[i]->from);
                                put(2 * i + 1, pairs[i]->to);
                            }
                            fields().chkAcopla.setChecked(coupling == 1);
                            choose(type, state);
                            ASSERT_EQ(filtered(),
                                      conditionOf({customer.clause, date.clause, number.clause, couplings.at(coupling)},
                                                  number.from[0] != '\0', type, state));
                            ++combinations;
                        }
                    }
                }
            }
        }
    }
    EXPECT_EQ(combinations, 4 * 4 * 4 * 2 * 3 * 3);
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(FiltersTest, AStateAloneFollowsWhereDirectlyAndTheTypeFollowsIt) {
    choose(0, onlyAccepted);
    EXPECT_EQ(filtered(), " Where  ( not DPI_FAcepta is null )  Order by DPI_Fecha DESC ");
    choose(5, onlyAccepted);
    EXPECT_EQ(filtered(), " Where  ( not DPI_FAcepta is null )  AND dpi_tipo=4  Order by DPI_Fecha DESC ");
    choose(5, onlyPending);
    EXPECT_EQ(filtered(), " Where  ( DPI_FAcepta is null )  AND dpi_tipo=4  Order by DPI_Fecha DESC ");
}

TEST_F(FiltersTest, ATypeAloneAmongAllStatesHasAWhereOfItsOwn) {
    choose(1, allStates);
    EXPECT_EQ(filtered(), "where dpi_tipo=0 Order by DPI_Fecha DESC ");
    choose(15, allStates);
    EXPECT_EQ(filtered(), "where dpi_tipo=14 Order by DPI_Fecha DESC ");
}

TEST_F(FiltersTest, WithNothingChosenAllProposalsAreAskedFor) {
    choose(0, allStates);
    EXPECT_EQ(filtered(), "where dpi_id <> 0 Order by DPI_Fecha DESC ");
}

TEST_F(FiltersTest, TheImpossibleCriterionTakesThePlaceOfAllOthers) {
    put(customerFrom, "1001");
    choose(3, allStates);
    std::int16_t flag = -1;
    std::string where;
    form->msCargarLista(flag, where);
    EXPECT_EQ(lastCondition(), " Where  (DPI_id = -1)  AND dpi_tipo=2  Order by DPI_Fecha DESC");
    put(numberFrom, "7");
    form->msCargarLista(flag, where);
    EXPECT_EQ(lastCondition(), " Where  (DPI_id = -1)  Order by DPI_Fecha DESC");
    EXPECT_EQ(flag, -1);
    EXPECT_EQ(where, "");
}

TEST_F(FiltersTest, AConditionOfOnesOwnSetsFiltersTypeStateAndFlagAside) {
    put(numberFrom, "7");
    choose(3, onlyAccepted);
    std::int16_t flag = 1;
    std::string where = "where dpi_id = 3";
    form->msCargarLista(flag, where);
    EXPECT_EQ(lastCondition(), "where dpi_id = 3");
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(where, "where dpi_id = 3");
}

// ---- What the conditions find ----------------------------------------------------------------------------------

class FoundTest : public FiltersTest {
  protected:
    FoundTest() {
        const char* const columns = "DPI_Tipo,DPI_Fecha,DPI_FAcepta,Dpi_Acopla";
        store(columns, "0,'10/01/2026 08:00:00',NULL,1");
        store(columns, "0,'10/01/2026 23:59:00','12/01/2026 00:00:00',0");
        store(columns, "4,'10/01/2026 23:59:30',NULL,0");
        store(columns, "4,'11/01/2026 00:00:00','13/01/2026 00:00:00',1");
        store(columns, "0,'12/01/2026 09:00:00',NULL,0");
        shop.database->execute("update DPI set DPI_CodCliente=1002 where DPI_Id in (2,4)");
        shop.database->execute("update DPI set DPI_CodCliente=1003 where DPI_Id = 5");
        clearAll();
    }
};

TEST_F(FoundTest, TheLatestStandsFirst) {
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000005", "000004", "000003", "000002", "000001"));
}

TEST_F(FoundTest, StateAndTypeNarrowTheList) {
    choose(0, onlyAccepted);
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004", "000002"));
    choose(1, onlyPending);
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000005", "000001"));
}

TEST_F(FoundTest, EitherEndOfTheCustomersAloneIsThatCustomer) {
    put(customerTo, "1002");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004", "000002"));
    put(customerTo, "");
    put(customerFrom, "1003");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000005"));
    put(customerFrom, "1002");
    put(customerTo, "1003");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000005", "000004", "000002"));
}

TEST_F(FoundTest, ADayEndsAtItsLastMinute) {
    put(dateFrom, "10/01/2026");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000002", "000001"));
}

TEST_F(FoundTest, TheLastHalfMinuteOfADayIsOnNoDaysList) {
    shop.database->execute("delete from DPI where DPI_Id <> 3");
    put(dateFrom, "10/01/2026");
    filtered();
    EXPECT_THAT(listed(), IsEmpty());
    put(dateTo, "11/01/2026");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000003"));
}

TEST_F(FoundTest, TheFirstNumberFindsAProposalWhateverItsTypeAndState) {
    choose(3, onlyPending);
    put(numberFrom, "4");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004"));
    put(numberFrom, "2");
    put(numberTo, "4");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004", "000003", "000002"));
}

TEST_F(FoundTest, TheSecondNumberAloneLooksWithinTypeAndState) {
    choose(0, onlyPending);
    put(numberTo, "4");
    filtered();
    EXPECT_THAT(listed(), IsEmpty());
    put(numberTo, "5");
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000005"));
}

TEST_F(FoundTest, TheFirstNumberDoesNotSetCustomerAndCouplingAside) {
    put(numberFrom, "4");
    put(customerFrom, "1001");
    filtered();
    EXPECT_THAT(listed(), IsEmpty());
    put(customerFrom, "1002");
    fields().chkAcopla.setChecked(true);
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004"));
}

TEST_F(FoundTest, CouplingsAloneAreFoundByTheirBox) {
    fields().chkAcopla.setChecked(true);
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000004", "000001"));
}

TEST_F(FoundTest, WhatTheFieldsHoldIsNotChecked) {
    put(customerFrom, "norte");
    filtered();
    EXPECT_EQ(lastCondition(), " Where  (DPI_CodCliente = norte )  Order by DPI_Fecha DESC");
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(sql::provider::syntax));
}

// ---- The search by measures ------------------------------------------------------------------------------------

class MeasuresTest : public FiltersTest {
  protected:
    void fill(int index, const char* text) { fields().Text1(index).setText(text); }
};

TEST_F(MeasuresTest, AllMeasuresStandInTheirOrderWithPointsForCommas) {
    choose(1, onlyPending);
    fill(0, "12,7");
    fill(1, "38");
    fill(2, "8,51");
    fill(3, "2,5");
    fill(7, "24,00");
    fill(8, "7,75");
    EXPECT_EQ(byMeasures(),
              " WHERE Dpi_Tipo = 1 AND  DPI_Z = 38 AND  DPI_Pas = 12.7 AND  DPI_ac = 7.75 AND  DPI_Rodillo = 8.51 AND "
              " DPI_Modulo = 2.5 AND  DPI_Eje = 24.00 AND  ( DPI_FAcepta is null ) ");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(MeasuresTest, EachStateAddsItsClause) {
    choose(0, onlyAccepted);
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 0 AND  ( not DPI_FAcepta is null ) ");
    choose(0, onlyPending);
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 0 AND  ( DPI_FAcepta is null ) ");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(MeasuresTest, WithNothingFilledAmongAllStatesTheTypeStandsAlone) {
    choose(2, allStates);
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 2 ");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(MeasuresTest, ZeroTextAndNothingAreNoMeasures) {
    choose(0, allStates);
    fill(0, "0");
    fill(1, "doce");
    fill(2, "0,00");
    fill(3, "");
    fill(7, "-0");
    fill(8, "7,75");
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 0 AND  DPI_ac = 7.75 ");
}

TEST_F(MeasuresTest, CouplingAndCriteriaPlayNoPart) {
    choose(0, allStates);
    fields().chkAcopla.setChecked(true);
    put(customerFrom, "1001");
    put(numberFrom, "1");
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 0 ");
}

TEST_F(MeasuresTest, TheFilterHoldsTheSameCouplingThatTheSearchLeavesOut) {
    choose(0, allStates);
    fields().chkAcopla.setChecked(true);
    EXPECT_EQ(filtered(), " Where  (DPI_acopla = 1 )  Order by DPI_Fecha DESC");
}

TEST_F(MeasuresTest, TheEntryChosenSearchesTheTypeOnePlaceOn) {
    store("DPI_Tipo", "0");
    store("DPI_Tipo", "1");
    choose(0, allStates);
    byMeasures();
    EXPECT_THAT(listed(), ElementsAre("000001")) << "Todos los tipos: type 0";
    choose(1, allStates);
    byMeasures();
    EXPECT_THAT(listed(), ElementsAre("000002")) << "Piñon Especial: type 1";
}

TEST_F(MeasuresTest, TheSearchDoesNotFindTheTypeOfTheWordsChosen) {
    store("DPI_Tipo", "0");
    ASSERT_EQ(fields().cboTipoPre.list(1), "Piñon Especial");
    choose(1, allStates);
    byMeasures();
    EXPECT_THAT(listed(), IsEmpty());
    filtered();
    EXPECT_THAT(listed(), ElementsAre("000001"));
}

TEST_F(MeasuresTest, AThousandsDotReachesTheServerAndItsRefusalTheUser) {
    choose(0, allStates);
    fill(7, "1.234,5");
    EXPECT_EQ(byMeasures(), " WHERE Dpi_Tipo = 0 AND  DPI_Eje = 1.234.5 ");
    EXPECT_EQ(shop.errors.size(), 1u);
}

}  // namespace
}  // namespace velmora::tracking
