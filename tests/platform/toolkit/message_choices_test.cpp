#include "velmora/platform/toolkit/message_choices.h"

#include <gmock/gmock.h>

namespace velmora::toolkit {
namespace {

using screen::Answer;
using screen::Buttons;
using ::testing::ElementsAre;

std::vector<std::string_view> captions(Buttons buttons) {
    std::vector<std::string_view> all;
    for (const Choice& choice : choicesOf(buttons)) {
        all.push_back(choice.caption);
    }
    return all;
}

TEST(MessageChoicesTest, AffirmativeStandsFirst) {
    EXPECT_THAT(captions(Buttons::ok), ElementsAre("&Aceptar"));
    EXPECT_THAT(captions(Buttons::yesNo), ElementsAre("&Sí", "&No"));
    EXPECT_THAT(captions(Buttons::yesNoCancel), ElementsAre("&Sí", "&No", "&Cancelar"));
}

TEST(MessageChoicesTest, EscTakesTheMildestAnswer) {
    EXPECT_EQ(answerOfEscape(Buttons::ok), Answer::ok);
    EXPECT_EQ(answerOfEscape(Buttons::yesNo), Answer::no);
    EXPECT_EQ(answerOfEscape(Buttons::yesNoCancel), Answer::cancel);
}

TEST(MessageChoicesTest, ABoxOffersTheAnswersOfItsButtonsOnly) {
    EXPECT_TRUE(offers(Buttons::ok, Answer::ok));
    EXPECT_FALSE(offers(Buttons::ok, Answer::yes));
    EXPECT_TRUE(offers(Buttons::yesNo, Answer::no));
    EXPECT_FALSE(offers(Buttons::yesNo, Answer::cancel));
    EXPECT_TRUE(offers(Buttons::yesNoCancel, Answer::cancel));
    EXPECT_FALSE(offers(Buttons::yesNoCancel, Answer::ok));
}

}  // namespace
}  // namespace velmora::toolkit
