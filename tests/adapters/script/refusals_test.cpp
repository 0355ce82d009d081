#include <gtest/gtest.h>

#include "workbench.h"

namespace velmora::script::testing {
namespace {

/// Runs lines on the open form, followed by one that shows whether the script continued.
Played refusing(const std::string& line) {
    Workbench bench;
    return bench.play("open banco\n" + line + "\necho after");
}

TEST(Refusal, EndsTheScriptUnlessItWasTried) {
    const Played ended = refusing("set Text1(0) apaga\nset Text1(2) 5");
    EXPECT_EQ(ended.status, Status::wrong);
    EXPECT_EQ(ended.out, "error refused Text1(2)\n");

    const Played tried = refusing("set Text1(0) apaga\ntry set Text1(2) 5");
    EXPECT_EQ(tried.status, Status::ok);
    EXPECT_EQ(tried.out, "error refused Text1(2)\nafter\n");
}

TEST(Refusal, NamesTheControlAsTheLineDoes) {
    Workbench bench;
    EXPECT_EQ(bench.play("open form-disabled\ntry press Toolbar1(FICHERO)").out, "error refused Toolbar1(FICHERO)\n");
}

TEST(Refusal, LeavesTheControlAsItWas) {
    EXPECT_EQ(refusing("set Text1(0) apaga\ntry set Text1(2) 5\nprint Text1(2)").out,
              "error refused Text1(2)\nText1(2) = \"\"\nafter\n");
}

TEST(Refusal, OfAControlThatWasDisabledBeforehandMovesNoFocus) {
    EXPECT_EQ(refusing("set Text1(0) apaga\nleave\ntry set Text1(2) 5").events, "got0 change0 lost0 unload");
}

TEST(Refusal, OfLabelsFramesAndDrawingsThatNobodyCanFocus) {
    for (const char* name : {"lblTitulo", "Frame1", "picPieza"}) {
        EXPECT_EQ(refusing(std::string("focus ") + name).out, std::string("error refused ") + name + "\n");
    }
}

TEST(Refusal, OfEntriesAndRowsThatAreNotThere) {
    for (const char* line : {"choose cboTipo 3", "choose cboTipo -2", "choose cboTipo Otro", "row dbgFilas 3"}) {
        const Played played = refusing(std::string("try ") + line);
        EXPECT_TRUE(played.out.starts_with("error refused ")) << line << ": " << played.out;
        EXPECT_EQ(played.status, Status::ok) << line;
    }
}

TEST(Refusal, OfAFormBeneathAnotherThoughItCanBeRead) {
    Workbench bench;
    const Played played = bench.play("open frente\nprint Text1(1)\ntry set Text1(1) 5\nprint Text1(1)");
    EXPECT_EQ(played.out, "Text1(1) = \"\"\nerror refused Text1(1)\nText1(1) = \"\"\n");
    EXPECT_EQ(played.status, Status::ok);
}

class RefusingState : public ::testing::TestWithParam<const char*> {};

TEST_P(RefusingState, RefusesEveryDeed) {
    for (const char* deed : {"set txtDentro 1", "type txtDentro 1", "focus txtDentro", "dblclick txtDentro"}) {
        Workbench bench;
        const Played played = bench.play(std::string("open ") + GetParam() + "\ntry " + deed + "\nprint txtDentro");
        EXPECT_EQ(played.out, "error refused txtDentro\ntxtDentro = \"\"\n") << deed;
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RefusingState,
                         ::testing::Values("disabled", "hidden", "locked", "frame-disabled", "frame-hidden",
                                           "form-disabled"));

TEST(Refusal, IsShownByStateAsWhatHoldsThroughTheFrame) {
    Workbench bench;
    EXPECT_EQ(bench.play("open frame-hidden\nstate txtDentro").out, "txtDentro enabled=1 visible=0 text=\"\"\n");
    EXPECT_EQ(bench.play("open frame-disabled\nstate txtDentro").out, "txtDentro enabled=0 visible=1 text=\"\"\n");
    EXPECT_EQ(bench.play("open form-disabled\nstate txtDentro").out, "txtDentro enabled=0 visible=1 text=\"\"\n");
    EXPECT_EQ(bench.play("open locked\nexpect-state txtDentro locked=1").status, Status::ok);
}

}  // namespace
}  // namespace velmora::script::testing
