// Texts that nobody should type, in every field that can be typed in, and a save after each.

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/runtime/text.h"
#include "velmora/proposal/saving.h"

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using support::ProposalWorkshop;
using ::testing::AnyOf;
using ::testing::Each;
using ::testing::IsEmpty;

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

struct NastyText {
    const char* name;
    std::string text;
};

const std::vector<NastyText>& nastyTexts() {
    static const std::vector<NastyText> texts{
        {"Empty", ""},
        {"Blanks", "   "},
        {"Letters", "abc"},
        {"Huge", "1e308"},
        {"BeyondEveryNumber", "1e309"},
        {"Negative", "-5"},
        {"Zero", "0"},
        {"Tiny", "1e-300"},
        {"Fraction", "0,005"},
        {"SingleQuotes", "O'Donnell ''x''"},
        {"DoubleQuotes", "1/2\" \"x\""},
        {"Statement", "'; drop table DPI; --"},
        {"NumberAndStatement", "1; delete from DPI"},
        {"Condition", "0 or 1=1"},
        {"Spanish", "Ñandú ñ Ç áéíóú ¿¡"},
        {"Emoji", "rueda ⚙️😀 fin"},
        {"LineBreaks", "uno\r\ndos\ntres\r\n"},
        {"Brackets", "(5)"},
        {"Currency", "5 €"},
        {"Hexadecimal", "&H1F"},
        {"Control", std::string("a\x01"
                                "b\tc\x7f")},
        {"Long", repeated("ñ1'", 1700).substr(0, 5000)},
        {"LongNumber", repeated("9", 400)},
    };
    return texts;
}

/// The words that a requirement puts in the user's way.
constexpr const char* stated[] = {
    "Datos Grabados satisfactoriamente",
    "Error Falta Cliente",
    "Error Falta indicar el numero de unidades",
    "El numero de dientes no puede ser cero",
    "Error en la grabacion del registro:\r\n",
    "Error en la actualizacion del registro\r\n",
    "Error: No Existen datos para piñon doble de Z ",
    "Atención, el valor de H no puede ser igual o inferior al de h",
    "Desea Burcar por el nombre Fiscal ?.",
};

bool isStated(const std::string& message) {
    return std::ranges::any_of(stated, [&](const char* words) { return message.starts_with(words); });
}

class BadInputTest : public ::testing::TestWithParam<NastyText> {
  protected:
    /// Saves one text in one field of a whole proposal of a type, and looks at what came of it.
    void tryIn(ProposalWorkshop& workshop, const std::string& field, int type) {
        SCOPED_TRACE(field + " of type " + std::to_string(type));
        workshop.openAnew();
        workshop.errors.clear();
        workshop.screen.messages.clear();
        workshop.attempt([&] { workshop.fields().cboTipoPre.setListIndex(type); });
        if (type == 0) {
            workshop.enterToothing();
        }
        workshop.enterCustomerAndUnits();
        if (!workshop.control(field).canTakeFocus()) {
            return;
        }
        const std::string before = workshop.query("select count(*) from DPI");
        workshop.set(field, GetParam().text);
        workshop.leave();
        workshop.screen.messages.clear();
        workshop.key(screen::Key::f5);
        ++tried_;
        for (const std::string& message : workshop.screen.messageTexts()) {
            EXPECT_TRUE(isStated(message)) << message;
        }
        for (const runtime::RuntimeError& error : workshop.errors) {
            EXPECT_FALSE(error.description().empty()) << error.number();
        }
        const auto& f = workshop.fields();
        EXPECT_TRUE(workshop.form().enabled());
        EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
        EXPECT_EQ(workshop.query("select count(*) from CLI"), "3");
        const int added = std::stoi(workshop.query("select count(*) from DPI")) - std::stoi(before);
        EXPECT_THAT(added, AnyOf(0, 1));
        const std::vector<std::string> said = workshop.screen.messageTexts();
        if (std::ranges::find(said, stated[0]) != said.end()) {
            EXPECT_EQ(added, 1) << "stored, it was said";
        } else {
            EXPECT_EQ(added, 0) << "refused, it was said";
        }
    }
    int tried_ = 0;
};

TEST_P(BadInputTest, EveryFieldOfThePlainSprocketTakesItOrRefusesItInWords) {
    ProposalWorkshop workshop;
    workshop.screen.cancelsQuestions = true;
    workshop.enterToothing();
    std::vector<std::string> fields;
    for (const screen::Control* control : workshop.form().controls()) {
        const auto* box = dynamic_cast<const screen::TextBox*>(control);
        if (box != nullptr && box->canTakeFocus() && !box->locked()) {
            fields.push_back(control->fullName());
        }
    }
    fields.emplace_back("cboHerramienta");
    for (const std::string& field : fields) {
        tryIn(workshop, field, 0);
    }
    EXPECT_GT(tried_, 50);
}

TEST_P(BadInputTest, TheToothingOfEveryOtherTypeTakesItOrRefusesItInWords) {
    ProposalWorkshop workshop;
    workshop.screen.cancelsQuestions = true;
    for (int type = 1; data::findProductType(type); ++type) {
        for (const char* field : {"Text1(0)", "Text1(1)", "Text1(9)", "Text1(22)", "Text4(0)"}) {
            tryIn(workshop, field, type);
        }
    }
    EXPECT_GT(tried_, 30);
}

TEST_P(BadInputTest, TextFieldsComeBackAsTypedAfterTheStatedCuts) {
    ProposalWorkshop workshop;
    workshop.screen.cancelsQuestions = true;
    const std::string& text = GetParam().text;
    const std::string whole = runtime::Left(text, 100);  // what the narrowest uncut column holds
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    workshop.set("txtPesu(1)", whole.empty() ? "x" : whole);
    workshop.set("txtPesu(2)", whole);
    workshop.set("txtObservaciones", runtime::Left(text, 4000));
    workshop.set("txtExtra", text);
    workshop.set("txtCPro", text);
    workshop.set("cboHerramienta", text);
    workshop.leave();
    workshop.key(screen::Key::f5);
    ASSERT_THAT(workshop.screen.messageTexts(), Each("Datos Grabados satisfactoriamente"));
    ASSERT_THAT(workshop.errors, IsEmpty());
    workshop.openAnew();
    ASSERT_TRUE(workshop.form().msCargarPresupuesto(1, true));
    EXPECT_EQ(workshop.text("txtPesu(1)"), whole.empty() ? "x" : whole);
    EXPECT_EQ(workshop.text("txtPesu(2)"), whole);
    EXPECT_EQ(workshop.text("txtObservaciones"), runtime::Replace(runtime::Left(text, 4000), "\r\n", ""));
    EXPECT_EQ(workshop.text("txtExtra"), runtime::Left(text, 200));
    EXPECT_EQ(workshop.text("txtCPro"), runtime::Left(text, 35));
    EXPECT_EQ(workshop.text("cboHerramienta"), runtime::Left(text, 15));
}

INSTANTIATE_TEST_SUITE_P(Texts, BadInputTest, ::testing::ValuesIn(nastyTexts()),
                         [](const ::testing::TestParamInfo<NastyText>& each) { return each.param.name; });

}  // namespace
}  // namespace velmora::proposal
