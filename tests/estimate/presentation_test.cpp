#include "velmora/estimate/presentation.h"

#include <algorithm>
#include <set>

#include "velmora/estimate/product_drawing.h"
#include "velmora/platform/runtime/numbers.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

using Names = std::set<std::string>;

/// "Text1(3-5) fraCubo" gives Text1(3), Text1(4), Text1(5), fraCubo.
Names namesOf(std::string_view list) {
    Names names;
    while (!list.empty()) {
        const std::size_t blank = std::min(list.find(' '), list.size());
        const std::string word(list.substr(0, blank));
        list.remove_prefix(std::min(blank + 1, list.size()));
        const std::size_t open = word.find('(');
        if (open == std::string::npos) {
            names.insert(word);
            continue;
        }
        const std::string inside = word.substr(open + 1, word.size() - open - 2);
        const std::size_t dash = inside.find('-');
        const int from = runtime::CInt(inside.substr(0, dash));
        const int to = dash == std::string::npos ? from : runtime::CInt(inside.substr(dash + 1));
        for (int i = from; i <= to; ++i) {
            names.insert(word.substr(0, open) + "(" + runtime::CStr(std::int64_t{i}) + ")");
        }
    }
    return names;
}

/// Whatever the type decides to show or to hide.
constexpr const char* shownOrHidden =
    "cboDobles fraPDM fraTriple fraDobleVar fraCre1 fraCremallera fraMatCre fraMatDisco fraCubo txtModulo Text1(0-18) "
    "Label1(10-11) Label1(13) Label1(17) Label1(20) Label1(34-35) Label1(37) Label2(2-3) lblTapaCubo(0-1) "
    "lblTapacuboTriple(0-1) Text3(1) Text3(3-6) txtPDM(1) txtPDM(3) txtPDM(5) txtTriple(0-10)";

/// Shown by a plain sprocket, which every new form begins with.
constexpr const char* plain =
    "fraMatDisco fraCubo Text1(0-4) Text1(6-10) Text1(12-13) Text1(15-17) Label1(11) Label1(13) Label1(17) Label1(20) "
    "Label2(2-3) Text3(1) Text3(3-4) txtPDM(1) txtPDM(3) txtPDM(5)";
constexpr const char* hub = "fraCubo Label1(13) Label1(17) Label1(20) Text1(10) Text1(16-17)";
constexpr const char* hubOnSketch = "Text3(1) Text3(3-4)";
constexpr const char* ofDouble = "cboDobles fraPDM Label1(10) Label1(34) Text1(5) Text1(11)";
constexpr const char* fromTable = "Text1(0) Text1(2) Text1(4) Text1(6) Text1(8-9) Text1(15) Text1(17)";
constexpr const char* never = "Text1(5) Text1(11)";

/// What a type shows beyond the plain sprocket and what it hides of it, and which fields cannot be typed in.
struct TypeRow {
    int type;
    std::vector<const char*> more;
    std::vector<const char*> less;
    std::vector<const char*> disabled;
    const char* rim = "Llanta";
    const char* hubWidth = "Ancho cubo";
    const char* hubDiameter = "Ø Cubo";
};

const std::vector<TypeRow>& typeRows() {
    static const std::vector<TypeRow> rows{
        {0, {}, {}, {never}},
        {1, {}, {hub, hubOnSketch}, {never}},
        {2, {"Text3(5-6)"}, {}, {never}},
        {3, {"Text3(5-6)"}, {}, {never, "Text1(4) Text1(6)"}},
        {4, {ofDouble}, {}, {never, fromTable}, "Llanta (B2)"},
        {5, {ofDouble}, {}, {"Text1(5)", fromTable}, "Llanta (B2)"},
        {6, {ofDouble, "lblTapaCubo(0-1)"}, {hub, "txtPDM(1) txtPDM(3) txtPDM(5)"}, {never, fromTable}, "Llanta (B2)"},
        {7,
         {ofDouble, "lblTapaCubo(0-1)"},
         {hub, "txtPDM(1) txtPDM(3) txtPDM(5)"},
         {"Text1(5)", fromTable},
         "Llanta (B2)"},
        {8, {}, {}, {never}},
        {9, {}, {hub, hubOnSketch}, {never}},
        {10,
         {"fraDobleVar Label1(35) Label1(37) Text1(14) Text1(18)"},
         {},
         {never, "Text1(17)"},
         "Llanta",
         "Ancho cubo A",
         "Ø Cubo A"},
        {11,
         {"fraDobleVar Label1(35) Label1(37) Text1(14) Text1(18)"},
         {},
         {never, "Text1(17)"},
         "Llanta",
         "Ancho cubo A",
         "Ø Cubo A"},
        {12, {ofDouble, "fraTriple txtTriple(0-10)"}, {"Label2(2-3)"}, {never, fromTable}, "Llanta (B3)"},
        {13, {"fraCre1 fraCremallera fraMatCre"}, {"fraCubo fraMatDisco Text1(1-4) Text1(6-8)"}, {never}},
        {14,
         {ofDouble, "fraTriple lblTapacuboTriple(0-1) txtTriple(0) txtTriple(2-7) txtTriple(9)"},
         {"Label2(2-3)", hub},
         {never, fromTable},
         "Llanta (B3)"},
    };
    return rows;
}

Names shownBy(const TypeRow& row) {
    Names shown = namesOf(plain);
    for (const char* list : row.more) {
        shown.merge(namesOf(list));
    }
    for (const char* list : row.less) {
        for (const std::string& name : namesOf(list)) {
            shown.erase(name);
        }
    }
    return shown;
}

class PresentationTest : public WiredFields {
  protected:
    screen::Control& control(const std::string& name) {
        screen::Control* found = form().find(name);
        if (found == nullptr) {
            throw std::logic_error(name + " is not on the form");
        }
        return *found;
    }
    estimate::Presentation& presentation() { return parts().presentation; }
    void expectShown(const TypeRow& row) {
        const Names shown = shownBy(row);
        for (const std::string& name : namesOf(shownOrHidden)) {
            EXPECT_EQ(control(name).visible(), shown.contains(name)) << "type " << row.type << ", " << name;
        }
    }
    void expectEnabled(const TypeRow& row) {
        Names disabled;
        for (const char* list : row.disabled) {
            disabled.merge(namesOf(list));
        }
        for (const std::string& name : namesOf("Text1(0-18)")) {
            EXPECT_EQ(control(name).enabled(), !disabled.contains(name)) << "type " << row.type << ", " << name;
        }
    }
};

TEST_F(PresentationTest, EachTypeShowsItsOwnFieldsAndHidesTheRest) {
    ASSERT_EQ(typeRows().size(), data::productTypes.size());
    for (const TypeRow& row : typeRows()) {
        openAnew();
        chooseType(row.type);
        expectShown(row);
    }
}

TEST_F(PresentationTest, EachTypeLetsItsOwnFieldsBeTypedIn) {
    for (const TypeRow& row : typeRows()) {
        openAnew();
        chooseType(row.type);
        expectEnabled(row);
    }
}

TEST_F(PresentationTest, EachTypeBearsItsCaptions) {
    for (const TypeRow& row : typeRows()) {
        openAnew();
        chooseType(row.type);
        EXPECT_EQ(fields().Label1(4).caption(), row.rim) << row.type;
        EXPECT_EQ(fields().Label1(13).caption(), row.hubWidth) << row.type;
        EXPECT_EQ(fields().Label1(20).caption(), row.hubDiameter) << row.type;
        EXPECT_EQ(fields().Label1(16).caption(), "AC") << row.type;
    }
}

TEST_F(PresentationTest, EachTypesOwnFrameBearsItsCaption) {
    struct Row {
        const char* frame;
        const char* caption;
    };
    const Row rows[] = {
        {"Frame2", "Medidas del piñon"},
        {"Frame2", "Medidas del disco"},
        {"Frame2", "Medidas del piñon de 2 cubos"},
        {"Frame2", "Medidas de la polea lisa"},
        {"fraPDM", "Medidas Piñon Doble"},
        {"fraPDM", "Medidas Piñon Doble"},
        {"fraPDM", "Medidas Piñon Doble"},
        {"fraPDM", "Medidas Piñon Doble"},
        {"Frame2", "Medidas del piñon"},
        {"Frame2", "Medidas del disco"},
        {"fraDobleVar", "Medidas Piñon 2 Cubos Variables"},
        {"fraDobleVar", "Medidas Polea Lisa 2 Cubos Variable"},
        {"fraTriple", "Medidas Piñon Triple"},
        {"fraCremallera", "Medidas Cremallera"},
        {"fraTriple", "Medidas Disco Triple"},
    };
    ASSERT_EQ(std::size(rows), data::productTypes.size());
    for (const data::ProductType& type : data::productTypes) {
        const Row& row = rows[type.number];
        chooseType(type.number);
        EXPECT_TRUE(control(row.frame).visible()) << type.name;
        EXPECT_EQ(dynamic_cast<screen::Frame&>(control(row.frame)).caption(), row.caption) << type.name;
    }
}

TEST_F(PresentationTest, AFrameKeepsItsCaptionWhileATypeOfAnotherIsShown) {
    struct Row {
        int type;
        const char* caption;
    };
    for (const Row& row : {Row{0, "Medidas del piñon"}, Row{1, "Medidas del disco"},
                           Row{2, "Medidas del piñon de 2 cubos"}, Row{4, "Medidas del piñon de 2 cubos"},
                           Row{3, "Medidas de la polea lisa"}, Row{10, "Medidas de la polea lisa"},
                           Row{8, "Medidas del piñon"}, Row{9, "Medidas del disco"}, Row{13, "Medidas del disco"}}) {
        chooseType(row.type);
        EXPECT_EQ(fields().Frame2.caption(), row.caption) << row.type;
    }
    chooseType(10);
    EXPECT_EQ(fields().fraDobleVar.caption(), "Medidas Piñon 2 Cubos Variables");
    chooseType(11);
    EXPECT_EQ(fields().fraDobleVar.caption(), "Medidas Polea Lisa 2 Cubos Variable");
    chooseType(12);
    EXPECT_EQ(fields().fraTriple.caption(), "Medidas Piñon Triple");
}

TEST_F(PresentationTest, ComingFromAnyTypeLeavesTheSameButWhatOnlySomeTypesSet) {
    const Names leftAsTheyWere =
        namesOf("Label1(17) Text1(17) Label2(2-3) Text3(1) Text3(3-6) txtPDM(1) txtPDM(3) txtPDM(5)");
    for (const TypeRow& before : typeRows()) {
        for (const TypeRow& row : typeRows()) {
            chooseType(before.type);
            chooseType(row.type);
            const Names shown = shownBy(row);
            for (const std::string& name : namesOf(shownOrHidden)) {
                if (!leftAsTheyWere.contains(name)) {
                    EXPECT_EQ(control(name).visible(), shown.contains(name))
                        << "type " << row.type << " after " << before.type << ", " << name;
                }
            }
            expectEnabled(row);
        }
    }
}

TEST_F(PresentationTest, TheTotalWidthStaysAsTheLastTypeLeftItWhereTheTypeDoesNotSetIt) {
    for (const int type : {4, 5, 12, 13}) {
        for (const int before : {0, 1}) {
            chooseType(before);
            chooseType(type);
            EXPECT_EQ(fields().Text1(17).visible(), before == 0) << type << " after " << before;
            EXPECT_EQ(fields().Label1(17).visible(), before == 0) << type << " after " << before;
        }
    }
}

TEST_F(PresentationTest, ThePulleyLocksRootAndHeightAndThePlainSprocketFreesThem) {
    chooseType(0);
    chooseType(3);
    EXPECT_FALSE(fields().Text1(4).enabled());
    EXPECT_FALSE(fields().Text1(6).enabled());
    chooseType(0);
    EXPECT_TRUE(fields().Text1(4).enabled());
    EXPECT_TRUE(fields().Text1(6).enabled());
}

TEST_F(PresentationTest, TheTripleDiscBearsItsOwnCaptionAndCoversItsHub) {
    chooseType(14);
    EXPECT_EQ(fields().fraTriple.caption(), "Medidas Disco Triple");
    EXPECT_TRUE(fields().fraTriple.visible());
    for (const int i : {1, 8, 10}) {
        EXPECT_FALSE(fields().txtTriple(i).visible()) << i;
    }
    for (const int i : {0, 1}) {
        EXPECT_TRUE(fields().lblTapacuboTriple(i).visible()) << i;
        EXPECT_EQ(fields().lblTapacuboTriple(i).backColor(), 16777215) << i;
    }
}

TEST_F(PresentationTest, TheSketchHasTheHubsOfTheType) {
    struct Row {
        int type;
        estimate::Hubs hubs;
    };
    for (const Row& row : {Row{0, estimate::Hubs::one}, Row{1, estimate::Hubs::none}, Row{2, estimate::Hubs::two},
                           Row{3, estimate::Hubs::two}, Row{8, estimate::Hubs::one}, Row{9, estimate::Hubs::none}}) {
        chooseType(row.type);
        EXPECT_EQ(estimate::hubsOf(fields().type()), row.hubs) << row.type;
    }
}

// --- Widths that follow from the type ------------------------------------------------------------------------------

TEST_F(PresentationTest, ChoosingTwoHubsCountsTheHubTwice) {
    for (const int type : {2, 3}) {
        fields().Text1(9).setText("10");
        fields().Text1(10).setText("20");
        fields().Text1(17).setText("1");
        fields().Text3(5).setText("");
        chooseType(type);
        EXPECT_EQ(fields().Text1(17).text(), "50,00") << type;
        EXPECT_EQ(fields().Text3(5).text(), "Ancho total 50") << type;
    }
}

TEST_F(PresentationTest, TheLabelHoldsTheSumUnrounded) {
    fields().Text1(9).setText("10,111");
    fields().Text1(10).setText("20,222");
    chooseType(2);
    EXPECT_EQ(fields().Text1(17).text(), "50,56");
    EXPECT_EQ(fields().Text3(5).text(), "Ancho total 50,555");
}

TEST_F(PresentationTest, ChoosingThePlainSprocketAddsRimAndHub) {
    fields().Text1(9).setText("10,111");
    fields().Text1(10).setText("20,222");
    fields().Text3(5).setText("x");
    chooseType(0);
    EXPECT_EQ(fields().Text1(17).text(), "30,33");
    EXPECT_EQ(fields().Text3(5).text(), "x");
}

TEST_F(PresentationTest, AnEmptyRimOrHubLeavesTheTotalWidth) {
    for (const int empty : {9, 10}) {
        for (const int type : {0, 2, 3, 10, 11}) {
            openAnew();
            chooseType(1);
            fields().Text1(9).setText("10");
            fields().Text1(10).setText("20");
            fields().Text1(empty).setText("");
            fields().Text1(17).setText("7");
            chooseType(type);
            EXPECT_EQ(fields().Text1(17).text(), "7") << type << ", empty " << empty;
        }
    }
}

TEST_F(PresentationTest, OtherTypesLeaveTheTotalWidth) {
    for (const int type : {1, 4, 5, 6, 7, 8, 9, 12, 13, 14}) {
        chooseType(1);
        fields().Text1(9).setText("10");
        fields().Text1(10).setText("20");
        fields().Text1(17).setText("7");
        chooseType(type);
        EXPECT_EQ(fields().Text1(17).text(), "7") << type;
    }
}

TEST_F(PresentationTest, AVariablePulleysFieldCountsHubATwiceAndItsLabelBothHubs) {
    fields().Text1(9).setText("10");
    fields().Text1(10).setText("20");
    fields().Text1(14).setText("5,5");
    chooseType(11);
    EXPECT_EQ(fields().Text1(17).text(), "50,00");
    EXPECT_EQ(fields().txtDCV(0).text(), "Ancho total 35,5");
}

TEST_F(PresentationTest, AVariableSprocketsFieldIsPutRightByItsOwnSketch) {
    fields().Text1(9).setText("10");
    fields().Text1(10).setText("20");
    fields().Text1(14).setText("5,5");
    chooseType(10);
    EXPECT_EQ(fields().Text1(17).text(), "35,5") << "the change of the total runs the sketch, which writes both hubs";
    EXPECT_EQ(fields().txtDCV(0).text(), "Ancho total 35,5");
}

TEST_F(PresentationTest, AWidthThatIsNoNumberIsATypeMismatch) {
    fields().Text1(9).setText("x");
    try {
        chooseType(2);
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), runtime::typeMismatch);
    }
}

// --- Gears ---------------------------------------------------------------------------------------------------------

TEST_F(PresentationTest, TheGearButtonServesGearsThatAreNotSavedYet) {
    for (const TypeRow& row : typeRows()) {
        fields().txtPesu(3).setText("");
        chooseType(row.type);
        EXPECT_EQ(fields().cmdEng.enabled(), row.type == 8 || row.type == 9) << row.type;
        fields().txtPesu(3).setText("12");
        chooseType(row.type);
        EXPECT_FALSE(fields().cmdEng.enabled()) << row.type;
    }
}

TEST_F(PresentationTest, ANewGearBearsThePlainCaptionsAndFields) {
    chooseType(8);
    EXPECT_EQ(fields().Frame2.caption(), "Medidas del piñon");
    EXPECT_TRUE(fields().Text1(8).visible());
    EXPECT_TRUE(fields().Text1(2).visible());
    EXPECT_FALSE(fields().txtModulo.visible());
    chooseType(9);
    EXPECT_EQ(fields().Frame2.caption(), "Medidas del disco");
}

TEST_F(PresentationTest, AGearReadBackShowsItsModuleAsANewOneDoesNot) {
    chooseType(8);
    presentation().msPresentarEngranaje();
    EXPECT_EQ(fields().Frame2.caption(), "Medidas del Engranaje");
    EXPECT_FALSE(fields().Text1(8).visible());
    EXPECT_FALSE(fields().Text1(2).visible());
    EXPECT_FALSE(fields().Label1(11).visible());
    EXPECT_TRUE(fields().txtModulo.visible());
    EXPECT_FALSE(fields().txtModulo.enabled());
    EXPECT_EQ(fields().Label1(16).caption(), "Modulo");
    chooseType(9);
    presentation().msPresentarEngranaje();
    EXPECT_EQ(fields().Frame2.caption(), "Medidas del Disco de Engranaje");
}

TEST_F(PresentationTest, NoOtherTypeIsPresentedAsAGear) {
    for (const TypeRow& row : typeRows()) {
        if (row.type == 8 || row.type == 9) {
            continue;
        }
        chooseType(row.type);
        presentation().msPresentarEngranaje();
        EXPECT_EQ(fields().Label1(16).caption(), "AC") << row.type;
        EXPECT_FALSE(fields().txtModulo.visible()) << row.type;
    }
}

// --- The four routines ---------------------------------------------------------------------------------------------

TEST_F(PresentationTest, TheRoutinesOfVisibilityWorkBothWays) {
    fields().Text1(15).setText("200");
    for (const bool b : {true, false}) {
        presentation().msVerCremallera(b);
        for (const std::string& name : namesOf("cboDobles fraTriple txtTriple(1-10) Text1(1-8) fraCubo fraMatDisco")) {
            EXPECT_EQ(control(name).visible(), !b) << name;
        }
        for (const std::string& name : namesOf("fraCre1 fraCremallera fraMatCre")) {
            EXPECT_EQ(control(name).visible(), b) << name;
        }
        presentation().msVerTriple(b);
        for (const std::string& name : namesOf("cboDobles fraTriple Text1(5) Text1(11) txtTriple(0-10)")) {
            EXPECT_EQ(control(name).visible(), b) << name;
        }
        presentation().msVerDoble(b);
        for (const std::string& name : namesOf(ofDouble)) {
            EXPECT_EQ(control(name).visible(), b) << name;
        }
        for (const std::string& name : namesOf(fromTable)) {
            EXPECT_EQ(control(name).enabled(), !b) << name;
        }
        presentation().msVerCubo(b);
        for (const std::string& name : namesOf(hub)) {
            EXPECT_EQ(control(name).visible(), b) << name;
        }
    }
}

TEST_F(PresentationTest, TheFactorsOfHubAndWidthAreAlwaysSeen) {
    for (const TypeRow& row : typeRows()) {
        chooseType(row.type);
        EXPECT_TRUE(fields().lblFormulaDM.visible()) << row.type;
        EXPECT_TRUE(fields().lblFormulaAncho.visible()) << row.type;
    }
}

}  // namespace
}  // namespace velmora::support
