#include "velmora/platform/toolkit/key_routing.h"

#include <vector>

#include <gmock/gmock.h>

#include "velmora/platform/runtime/errors.h"

namespace velmora::toolkit {
namespace {

using screen::Key;
using screen::KeyDown;
using screen::TextBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class KeyRoutingTest : public ::testing::Test {
  protected:
    KeyRoutingTest() {
        form.setTabOrder({&first, &second});
        form.onKeyDown = [this](KeyDown& down) { seen.push_back(down.key); };
        form.activate();
    }

    /// Whether the key is consumed; the key that reached the control is in `delivered`.
    bool route(const KeyStroke& stroke) {
        return routeKey(form, stroke, [this](const KeyStroke& given) {
            delivered.push_back(given);
            return controlUses;
        });
    }
    bool route(Key key, bool shift = false) { return route(strokeOf(key, shift)); }

    screen::Form form{"frm"};
    TextBox first{form, "first"};
    TextBox second{form, "second"};
    std::vector<Key> seen;
    std::vector<KeyStroke> delivered;
    bool controlUses = true;
};

TEST_F(KeyRoutingTest, TheFormSeesTheKeyThenTheControlWithItsCharacter) {
    EXPECT_TRUE(route(Key::enter));
    EXPECT_THAT(seen, ElementsAre(Key::enter));
    ASSERT_EQ(delivered.size(), 1U);
    EXPECT_EQ(delivered[0].key, Key::enter);
    EXPECT_EQ(delivered[0].character, carriageReturn);
}

TEST_F(KeyRoutingTest, AKeyThatTheControlDoesNotUseIsTheWidgets) {
    controlUses = false;
    EXPECT_FALSE(route(strokeTyping(U'a')));
    EXPECT_EQ(delivered.size(), 1U);
}

TEST_F(KeyRoutingTest, ASwallowedKeyReachesNobody) {
    form.onKeyDown = [](KeyDown& down) { down.key = Key::none; };
    EXPECT_TRUE(route(Key::enter));
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, AKeyThatWasTurnedBringsTheCharacterOfWhatItBecame) {
    form.onKeyDown = [](KeyDown& down) { down.key = down.key == Key::padDecimal ? Key::comma : Key::f5; };
    route({.key = Key::padDecimal, .character = U'.'});
    route(strokeTyping(U'7'));
    ASSERT_EQ(delivered.size(), 2U);
    EXPECT_EQ(delivered[0].key, Key::comma);
    EXPECT_EQ(delivered[0].character, U',');
    EXPECT_EQ(delivered[1].key, Key::f5);
    EXPECT_EQ(delivered[1].character, U'\0');
}

TEST_F(KeyRoutingTest, AKeyThatWasLeftAloneKeepsTheCharacterOfItsKeyboard) {
    route({.key = Key::padDecimal, .character = U'·'});
    ASSERT_EQ(delivered.size(), 1U);
    EXPECT_EQ(delivered[0].character, U'·');
}

TEST_F(KeyRoutingTest, TabMovesTheFocusAndIsNotShownToTheForm) {
    EXPECT_TRUE(route(Key::tab));
    EXPECT_EQ(form.activeControl(), &second);
    EXPECT_TRUE(route(Key::tab, true));
    EXPECT_EQ(form.activeControl(), &first);
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, AKeyThatWasTurnedIntoTabMovesTheFocus) {
    form.onKeyDown = [](KeyDown& down) { down.key = Key::tab; };
    EXPECT_TRUE(route(Key::enter));
    EXPECT_EQ(form.activeControl(), &second);
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, AKeyThatMovedTheFocusIsUsedUp) {
    form.onKeyDown = [this](KeyDown&) { second.setFocus(); };
    EXPECT_TRUE(route(strokeTyping(U'a')));
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, AKeyThatUnloadedTheFormIsUsedUp) {
    form.onKeyDown = [this](KeyDown&) { form.unload(); };
    EXPECT_TRUE(route(Key::escape));
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, ADisabledOrUnloadedFormUsesEveryKeyUpUnseen) {
    form.setEnabled(false);
    EXPECT_TRUE(route(strokeTyping(U'a')));
    EXPECT_TRUE(route(Key::tab));
    form.setEnabled(true);
    form.unload();
    EXPECT_TRUE(route(KeyStroke{}));
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_THAT(delivered, IsEmpty());
    EXPECT_EQ(form.activeControl(), &first);
}

TEST_F(KeyRoutingTest, AKeyThatFormsDoNotSeeIsTheWidgets) {
    EXPECT_FALSE(route(KeyStroke{}));
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_THAT(delivered, IsEmpty());
}

TEST_F(KeyRoutingTest, ErrorsOfTheHandlersPassThrough) {
    form.onKeyDown = [](KeyDown&) { runtime::raise(runtime::typeMismatch); };
    EXPECT_THROW(route(Key::enter), runtime::RuntimeError);
    EXPECT_THAT(delivered, IsEmpty());
}

KeyStroke withControl(KeyStroke stroke) {
    stroke.control = true;
    return stroke;
}

TEST_F(KeyRoutingTest, ControlAndEnterStopsAtEveryField) {
    second.setTabStop(false);
    EXPECT_TRUE(route(withControl(strokeOf(Key::enter))));
    EXPECT_EQ(form.activeControl(), &second);
    EXPECT_TRUE(route(withControl(strokeOf(Key::enter, true))));
    EXPECT_EQ(form.activeControl(), &first);
    EXPECT_THAT(seen, IsEmpty());
}

TEST_F(KeyRoutingTest, ControlAndALetterIsASecondNameWhereACaptionNamesTheKey) {
    EXPECT_FALSE(route(withControl(strokeTyping(U'S'))));
    screen::Button save(form, "save");
    save.setCaption("&Grabar (F5)");
    EXPECT_TRUE(route(withControl(strokeTyping(U's'))));
    EXPECT_THAT(seen, ElementsAre(Key::f5));
}

TEST_F(KeyRoutingTest, ControlAndALetterPressesTheButtonThatNamesIt) {
    screen::Button anew(form, "anew");
    anew.setCaption("&Nueva (Ctrl+N)");
    int pressed = 0;
    anew.onClick = [&] { ++pressed; };
    EXPECT_TRUE(route(withControl(strokeTyping(U'n'))));
    anew.setEnabled(false);
    EXPECT_FALSE(route(withControl(strokeTyping(U'N'))));
    EXPECT_EQ(pressed, 1);
}

TEST_F(KeyRoutingTest, OtherKeysWithControlAreTheWidgets) {
    EXPECT_FALSE(route(withControl(strokeTyping(U'V'))));
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_THAT(delivered, IsEmpty());
}

}  // namespace
}  // namespace velmora::toolkit
