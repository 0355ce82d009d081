#include "velmora/adapters/script/interpreter.h"

#include <gtest/gtest.h>

#include "workbench.h"

namespace velmora::script::testing {
namespace {

TEST(Script, SetMovesTheFocusThenReplacesTheText) {
    const Played played = play("open banco\nset Text1(0) 5\nset Text1(2) 7\nset Text1(2) 7\nclose");
    EXPECT_EQ(played.status, Status::ok);
    EXPECT_EQ(played.events, "got0 change0 lost0 got2 change2 unload");
}

TEST(Script, LeaveTakesTheFocusOff) {
    EXPECT_EQ(play("open banco\nleave\nleave\nclose").events, "got0 lost0 unload");
}

TEST(Script, TheControlThatACommandNamesWinsOverASetFocusInLostFocus) {
    const Played played = play("open banco\nset Text1(0) vuelve\nset Text1(1) 3\nprint Text1(1)\nclose");
    EXPECT_EQ(played.out, "Text1(1) = \"3\"\n");
    EXPECT_EQ(played.events, "got0 change0 lost0 got1 change1 unload");
}

TEST(Script, ASetFocusInLostFocusWinsOverLeave) {
    EXPECT_EQ(play("open banco\nset Text1(0) vuelve\nleave\nclose").events, "got0 change0 lost0 got0 unload");
}

TEST(Script, PrintShowsEachKindInItsWay) {
    const Played played = play(
        "open banco\nprint form Text1(0) cboTipo chkAcopla lblTitulo cmdSalir Frame1 dbgFilas Toolbar1\n"
        "choose cboTipo 1\ncheck chkAcopla on\nprint cboTipo chkAcopla\n");
    EXPECT_EQ(played.out,
              "form = \"Banco de pruebas\"\nText1(0) = \"\"\ncboTipo = -1 \"\"\nchkAcopla = off\n"
              "lblTitulo = \"Título\"\ncmdSalir = \"&Salir\"\nFrame1 = \"Dentro\"\ndbgFilas = 3\n"
              "Toolbar1 = \"Nuevo||Ver\"\ncboTipo = 1 \"Disco\"\nchkAcopla = on\n");
}

TEST(Script, ChooseTakesAnIndexBareAndATextQuoted) {
    const Played played = play(
        "open banco\nchoose cboTipo 0\nchoose cboTipo 0\nprint cboTipo\nchoose cboTipo \"12\"\nprint cboTipo\n"
        "choose cboTipo Disco\nprint cboTipo");
    EXPECT_EQ(played.out, "cboTipo = 0 \"Piñon\"\ncboTipo = 2 \"12\"\ncboTipo = 1 \"Disco\"\n");
    EXPECT_EQ(played.events, "got0 lost0 click chosen click chosen click chosen click chosen unload");
}

TEST(Script, ComingToAListAndLeavingItTellsNothingOfIt) {
    EXPECT_EQ(play("open banco\nfocus cboTipo\nleave\nset cboLibre Ab\nleave\nclose").events, "got0 lost0 unload");
}

TEST(Script, ADoubleClickMovesTheFocusThenTells) {
    EXPECT_EQ(play("open banco\ndblclick Text1(2)\ndblclick Text1(2)\nclose").events,
              "got0 lost0 got2 twice2 twice2 unload");
}

TEST(Script, NothingElseIsADoubleClick) {
    EXPECT_EQ(play("open banco\nset Text1(0) 5\ntype Text1(0) 6\nkey ENTER\nleave\nclose").events,
              "got0 change0 change0 lost0 got1 lost1 unload");
}

TEST(Script, OnlyAFieldIsClickedAtTwice) {
    EXPECT_EQ(play("open banco\ndblclick cboTipo").status, Status::wrong);
    EXPECT_EQ(play("open banco\ndblclick").status, Status::wrong);
}

TEST(Script, AnEntryIsLookedUpOnceTheFocusHasArrived) {
    const Played played = play("open banco\nset Text1(0) llena\nchoose cboTipo \"Nuevo\"\nprint cboTipo");
    EXPECT_EQ(played.out, "cboTipo = 3 \"Nuevo\"\n");
}

TEST(Script, BarsArePressedByIndexAndByMenuKey) {
    EXPECT_EQ(play("open banco\nleave\npress Toolbar1(FICHERO)\npress Toolbar1(3)").events,
              "got0 lost0 menuFICHERO bar3 unload");
    EXPECT_EQ(play("open banco\npress Toolbar1(2)").status, Status::wrong) << "a separator";
    EXPECT_EQ(play("open banco\npress Toolbar1(4)").status, Status::wrong);
    EXPECT_EQ(play("open banco\npress Toolbar1(OTRA)").status, Status::wrong);
}

TEST(Script, GridsAreMovedPressedAndRead) {
    const Played played = play(
        "open banco\nleave\nrow dbgFilas 1\ncell dbgFilas \"Número\"\ncell dbgFilas 1\ngridkey dbgFilas F8\n"
        "rows dbgFilas");
    EXPECT_EQ(played.status, Status::ok);
    EXPECT_EQ(played.out, "Número\tNombre\n001\tuno\n002\tdos\n003\t\n");
    EXPECT_EQ(played.events, "got0 lost0 cell1 cell1 gridF8 unload");
}

TEST(Script, AKeyInAGridIsSeenByTheFormFirst) {
    EXPECT_EQ(play("open banco\nleave\ngridkey dbgFilas ENTER").events, "got0 lost0 got0 unload");
    EXPECT_EQ(play("open banco\nleave\ngridkey dbgFilas ESC\necho after").events, "got0 lost0 unload");
}

TEST(Script, GridKeysLeaveTheFocusWhereItIs) {
    EXPECT_EQ(play("open banco\ngridkey dbgFilas F8\nclose").events, "got0 gridF8 unload");
    EXPECT_EQ(play("open banco\nrow dbgFilas 1\nclose").events, "got0 lost0 unload") << "other deeds move it";
}

TEST(Script, StateAndDumpShowWhatHolds) {
    const Played played = play("open banco\nstate Text1(0) form");
    EXPECT_EQ(played.out,
              "Text1(0) enabled=1 visible=1 text=\"\"\n"
              "frmBanco enabled=1 visible=1 text=\"Banco de pruebas\"\n");
    const std::string dump = play("open banco\ndump").out;
    EXPECT_TRUE(dump.starts_with("Text1(0) enabled=1 visible=1 text=\"\"\nText1(1) ")) << dump;
    EXPECT_TRUE(dump.ends_with("picPieza enabled=1 visible=1 text=\"\"\n")) << dump;
    EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), 21);
}

TEST(Script, MessagesAreShownAndOkAnswersItself) {
    const Played played = play("open banco\npress cmdAviso\nexpect-message Listo\nexpect-message Listo");
    EXPECT_EQ(played.out,
              "message icon=information title=\"\" text=\"Listo\" buttons=ok answer=ok\n"
              "failed line=4 last message \"Listo\" expected \"Listo\"\n");
    EXPECT_EQ(played.status, Status::checkFailed);
}

TEST(Script, AQuestionTakesTheQueuedAnswer) {
    const Played played = play(
        "open banco\nanswer yes\npress cmdPregunta\nprint Text1(0)\n"
        "expect-message \"¿Seguro?\\nNo hay \\\"vuelta\\\"\"");
    EXPECT_EQ(played.status, Status::ok);
    EXPECT_EQ(played.out,
              "message icon=question title=\"Borrar\" text=\"¿Seguro?\\nNo hay \\\"vuelta\\\"\" "
              "buttons=yesno answer=yes\nText1(0) = \"sí\"\n");
}

TEST(Script, AQueuedOkIsUsedUpByTheBoxItWasMeantFor) {
    EXPECT_EQ(play("open banco\nanswer ok\nanswer no\npress cmdAviso\npress cmdPregunta\nexpect Text1(0) no").status,
              Status::ok);
}

TEST(Script, AQuestionWithoutAnswerEndsTheScript) {
    const Played played = play("open banco\npress cmdPregunta\necho after");
    EXPECT_EQ(played.status, Status::unanswered);
    EXPECT_TRUE(played.out.ends_with("buttons=yesno answer=none\n")) << played.out;
    EXPECT_EQ(played.faults, "line 2: a question has no answer: ¿Seguro?\r\nNo hay \"vuelta\"\n");
}

TEST(Script, AnAnswerThatTheBoxHasNoButtonForIsWrong) {
    EXPECT_EQ(play("open banco\nanswer cancel\npress cmdPregunta").status, Status::wrong);
}

TEST(Script, SearchWindowsAndFileDialogsTakeQueuedAnswers) {
    const Played played = play(
        "open banco\npick 1\npick none\npress cmdBuscar\nprint Text1(0)\npress cmdBuscar\nprint Text1(0)\n"
        "file \"/a b/c\"\nfile none\npress cmdFichero\nprint Text1(0)\npress cmdFichero\nprint Text1(0)");
    EXPECT_EQ(played.out,
              "search title=\"Clientes\" pick=1\nText1(0) = \"fila 1\"\nsearch title=\"Clientes\" pick=none\n"
              "Text1(0) = \"ninguna\"\nfile title=\"Abrir\" path=\"/a b/c\"\nText1(0) = \"/a b/c\"\n"
              "file title=\"Abrir\" path=none\nText1(0) = \"ninguno\"\n");
    EXPECT_EQ(play("open banco\npress cmdBuscar").status, Status::unanswered);
    EXPECT_EQ(play("open banco\npress cmdFichero").status, Status::unanswered);
    EXPECT_EQ(play("open banco\npick 2\npress cmdBuscar").status, Status::wrong);
}

TEST(Script, CommandsGoToTheFormOnTopUntilItIsClosed) {
    const Played played = play(
        "open banco\nset Text1(0) abajo\npress cmdOtra\nprint form Text1(0)\nset Text1(0) arriba\nclose\n"
        "print form Text1(0)\nclose\necho fin");
    EXPECT_EQ(played.status, Status::ok);
    EXPECT_EQ(played.out, "form = \"Otra\"\nText1(0) = \"\"\nform = \"Banco de pruebas\"\nText1(0) = \"abajo\"\nfin\n");
    EXPECT_EQ(played.events, "got0 change0 lost0 closed unload");
}

TEST(Script, OpenFormsAreClosedAtTheEnd) {
    EXPECT_EQ(play("open banco\npress cmdOtra\necho fin").events, "got0 lost0 closed unload");
}

TEST(Script, AFormThatUnloadsItselfGivesTheTurnBack) {
    const Played played = play("open banco\nkey ESC\necho cerrado\nprint Text1(0)");
    EXPECT_EQ(played.out, "cerrado\n");
    EXPECT_EQ(played.status, Status::wrong);
}

TEST(Script, AnErrorIsShownAndTheScriptGoesOn) {
    const Played played = play("open banco\npress cmdError\necho sigue\npress cmdLeer\nclose\necho fin");
    EXPECT_EQ(played.status, Status::ok);
    EXPECT_EQ(played.out,
              "error number=13 description=\"" + runtime::errorDescription(runtime::typeMismatch) + "\"\nsigue\nfin\n");
}

TEST(Script, AnErrorInLostFocusDoesNotStopTheEntry) {
    const Played played = play("open banco\nset Text1(0) mal\nset Text1(1) 5\nprint Text1(1)");
    EXPECT_TRUE(played.out.starts_with("error number=13 ")) << played.out;
    EXPECT_TRUE(played.out.ends_with("\nText1(1) = \"5\"\n")) << played.out;
}

TEST(Script, QueriesShowHeadingAndRows) {
    const Played played = play("query \"select uno\"\nquery \"select nada\"\nquery delete\nquery \"select x\"");
    EXPECT_EQ(played.out,
              "Nº\tTexto\n1\ta\n12.7\tNULL\nA\nerror number=-2147217865 description=\"No existe la tabla\"\n");
    EXPECT_EQ(played.status, Status::ok);
}

TEST(Script, QueriesAreNotTracedAndProgramStatementsAre) {
    Workbench bench;
    bench.traces = true;
    EXPECT_EQ(bench.play("query \"select nada\"\nopen banco\npress cmdLeer").out, "A\nsql> select uno\n");
}

TEST(Script, FailRefusesOneStatementAndLoseAllThatFollow) {
    const Played played = play(
        "fail uno\nopen banco\npress cmdLeer\npress cmdLeer\necho leído\nlose connection\npress cmdLeer\n"
        "press cmdLeer\nquery \"select nada\"");
    EXPECT_EQ(played.out,
              "error number=-2147467259 description=\"El proveedor ha rechazado la instrucción\"\nleído\n"
              "error number=-2147467259 description=\"Se ha perdido la conexión con la base de datos\"\n"
              "error number=-2147467259 description=\"Se ha perdido la conexión con la base de datos\"\nA\n");
}

TEST(Script, ChecksThatHoldSayNothing) {
    const Played played = play(
        "open banco\nset txtNotas \"a\\nb\"\nchoose cboTipo 2\n"
        "expect txtNotas \"a\\nb\"\nexpect cboTipo 2\nexpect cboTipo \"12\"\nexpect chkAcopla off\n"
        "expect form \"Banco de pruebas\"\nexpect lblTitulo Título\n"
        "expect-state cboTipo enabled=1 visible=1 locked=0 text=\"12\"\n"
        "expect-query \"select uno\" \"1\ta\\n12.7\tNULL\"\nexpect-query \"select nada\" \"\"");
    EXPECT_EQ(played.out, "");
    EXPECT_EQ(played.status, Status::ok);
}

TEST(Script, ChecksThatFailTellBothSidesAndGoOn) {
    const Played played = play(
        "open banco\nexpect Text1(0) 5\nexpect cboTipo 0\nexpect-state Text1(0) enabled=1 visible=0\n"
        "expect-query \"select nada\" x\nexpect-query \"select x\" \"\"\necho fin");
    EXPECT_EQ(played.out,
              "failed line=2 Text1(0) = \"\" expected \"5\"\nfailed line=3 cboTipo = -1 \"\" expected \"0\"\n"
              "failed line=4 Text1(0) enabled=1 visible=1 text=\"\" expected enabled=1 visible=0\n"
              "failed line=5 query = \"\" expected \"x\"\n"
              "error number=-2147217865 description=\"No existe la tabla\"\n"
              "fin\n");
    EXPECT_EQ(played.status, Status::checkFailed);
}

TEST(Script, ACheckThatCannotBeMadeDoesNotHold) {
    EXPECT_EQ(play("expect-query \"select x\" \"\"").status, Status::checkFailed);
    EXPECT_EQ(play("query \"select x\"").status, Status::ok);
}

TEST(Script, AWrongScriptGoesBeforeFailedChecks) {
    const Played played = play("open banco\nexpect Text1(0) 5\nnonsense");
    EXPECT_EQ(played.status, Status::wrong);
    EXPECT_EQ(played.faults, "line 3: no such command: nonsense\n");
}

TEST(Script, WhatNobodyKnowsEndsTheScriptWithItsLine) {
    for (const char* line : {"open otra",
                             "call otra",
                             "set Text9(0) 1",
                             "set cboTipo 1",
                             "set lblTitulo 1",
                             "choose Text1(0) 1",
                             "check cboTipo on",
                             "check chkAcopla maybe",
                             "press Text1(0)",
                             "press nadie",
                             "press nadie(1)",
                             "key F10",
                             "row dbgFilas x",
                             "row Text1(0) 1",
                             "cell dbgFilas 7",
                             "cell dbgFilas Otra",
                             "cell dbgFilas Nombre",
                             "answer maybe",
                             "pick x",
                             "lose hope",
                             "print nadie",
                             "state nadie",
                             "rows Text1(0)",
                             "set Text1(0)",
                             "leave now",
                             "expect-state Text1(0) enabled",
                             "expect-state Text1(0) colour=1",
                             "echo \"open",
                             "call doble x"}) {
        const Played played = play("open banco\n" + std::string(line) + "\necho after");
        EXPECT_EQ(played.status, Status::wrong) << line;
        EXPECT_EQ(played.out, "") << line;
        EXPECT_TRUE(played.faults.starts_with("line 2: ")) << line << ": " << played.faults;
    }
    EXPECT_EQ(play("set Text1(0) 1").status, Status::wrong) << "no form is open";
    EXPECT_EQ(play("close").status, Status::wrong);
}

TEST(Script, CallPrintsWhatComesBack) {
    EXPECT_EQ(play("call doble 21\necho a \"b  c\" d\necho").out, "doble = 42\na b  c d\n\n");
}

}  // namespace
}  // namespace velmora::script::testing
