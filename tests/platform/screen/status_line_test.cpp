#include "velmora/platform/screen/status_line.h"

#include <gtest/gtest.h>

#include "velmora/platform/screen/form.h"

namespace velmora::screen {
namespace {

class StatusObserver : public FormObserver {
  public:
    explicit StatusObserver(Form& form) : form_(form) { form_.addObserver(*this); }
    ~StatusObserver() override { form_.removeObserver(*this); }
    void controlChanged(Control&, Property) override {}
    void formChanged() override {}
    void focusMoved(Control*) override {}
    void statusChanged() override { ++changes; }

    int changes = 0;

  private:
    Form& form_;
};

TEST(StatusLineTest, AFormTellsNothingUntilItSetsSomething) {
    const Form form("f");
    EXPECT_EQ(form.status().state(), RecordState{});
    EXPECT_EQ(form.status().deed(), "");
    EXPECT_EQ(form.status().note(), "");
    EXPECT_EQ(form.status().work(), "");
}

TEST(StatusLineTest, ObserversHearOfEachNewTextAndNotOfTheSameOne) {
    Form form("f");
    const StatusObserver observer(form);
    form.status().tellDeed("Propuesta 321 grabada a las 10:32");
    form.status().tellDeed("Propuesta 321 grabada a las 10:32");
    EXPECT_EQ(observer.changes, 1);
    form.status().tellNote("Falta Z");
    form.status().tellWork("Esperando");
    EXPECT_EQ(observer.changes, 3);
    form.status().clearNote();
    form.status().clearNote();
    EXPECT_EQ(observer.changes, 4);
    EXPECT_EQ(form.status().note(), "");
    EXPECT_EQ(form.status().deed(), "Propuesta 321 grabada a las 10:32");
}

TEST(StatusLineTest, TheStateIsAskedWheneverItIsShown) {
    Form form("f");
    const StatusObserver observer(form);
    RecordState record{.standing = Standing::fresh};
    form.status().setStateSource([&record] { return record; });
    EXPECT_EQ(observer.changes, 1);
    record.unsaved = true;
    EXPECT_EQ(form.status().state(), (RecordState{.standing = Standing::fresh, .unsaved = true}));
}

}  // namespace
}  // namespace velmora::screen
