#include "velmora/platform/toolkit/status_text.h"

#include <gtest/gtest.h>

namespace velmora::toolkit {
namespace {

using screen::RecordState;
using screen::Standing;

class StatusTextTest : public ::testing::Test {
  protected:
    StatusTextTest() {
        form.setTabOrder({&box});
        form.activate();
    }
    screen::Form form{"frm"};
    screen::TextBox box{form, "box"};
};

TEST_F(StatusTextTest, TheStateIsNamedWithWhatIsNotStored) {
    struct Row {
        RecordState state;
        const char* words;
    };
    for (const Row& row :
         {Row{{}, ""}, Row{{.unsaved = true}, "Sin grabar"}, Row{{.standing = Standing::fresh}, "Nueva"},
          Row{{.standing = Standing::pending}, "Pendiente"},
          Row{{.standing = Standing::pending, .unsaved = true}, "Pendiente, sin grabar"},
          Row{{.standing = Standing::accepted}, "Aceptada"}, Row{{.standing = Standing::readOnly}, "Solo lectura"}}) {
        form.status().setStateSource([&row] { return row.state; });
        EXPECT_EQ(statusTextOf(form).state, row.words);
    }
}

TEST_F(StatusTextTest, WhatIsUnderWayComesBeforeTheNoteTheWarningAndTheHint) {
    EXPECT_EQ(statusTextOf(form).message, "");
    box.setHint("Número de dientes");
    EXPECT_EQ(statusTextOf(form).message, "Número de dientes");
    EXPECT_FALSE(statusTextOf(form).urgent);
    box.setWarning("Sin precio");
    EXPECT_EQ(statusTextOf(form).message, "Sin precio");
    EXPECT_TRUE(statusTextOf(form).urgent);
    form.status().tellNote("Falta Z");
    EXPECT_EQ(statusTextOf(form).message, "Falta Z");
    form.status().tellWork("Esperando a otro usuario…");
    EXPECT_EQ(statusTextOf(form).message, "Esperando a otro usuario…");
    EXPECT_TRUE(statusTextOf(form).urgent);
}

TEST_F(StatusTextTest, HintAndWarningAreThoseOfTheControlWithTheFocus) {
    screen::TextBox other(form, "other");
    other.setHint("Otro");
    other.setWarning("Otro aviso");
    EXPECT_EQ(statusTextOf(form).message, "");
    form.leaveFocus();
    EXPECT_EQ(statusTextOf(form).message, "");
}

TEST_F(StatusTextTest, TheLastActionStandsBesideTheMessage) {
    form.status().tellDeed("Propuesta 321 grabada a las 10:32");
    form.status().tellNote("Falta Z");
    EXPECT_EQ(statusTextOf(form).deed, "Propuesta 321 grabada a las 10:32");
}

}  // namespace
}  // namespace velmora::toolkit
