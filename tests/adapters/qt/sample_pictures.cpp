// Shows the sample form (no argument) or writes its picture to the given path, for visual checks.

#include <QApplication>

#include "velmora/adapters/qt/picture.h"
#include "velmora/adapters/qt/qt_screen.h"

#include "sample_form.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    velmora::qt::QtScreen screen;
    velmora::testing::SampleForm form;
    if (argc > 1) {
        form.moveFocus(form.measure(2));
        return velmora::qt::picture(screen, form, argv[1]) ? 0 : 1;
    }
    screen.showModal(form);
    return 0;
}
