#include "velmora/adapters/qt/spanish_texts.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <set>

#include <gmock/gmock.h>

#include "velmora/adapters/qt/qt_screen.h"

namespace velmora::qt {
namespace {

using ::testing::IsEmpty;

/// Asked after SpanishTexts: collects what that did not know.
class Unknown : public QTranslator {
  public:
    QString translate(const char* context, const char* source, const char*, int) const override {
        texts.insert(std::string(context) + ": " + source);
        return {};
    }
    bool isEmpty() const override { return false; }
    mutable std::set<std::string> texts;
};

/// What is the same in both languages, or no text for the user. Names of keys are asked for to read a shortcut, those
/// of all keyboards.
bool needsNoTranslation(const std::string& text) {
    return text == "QGuiApplication: QT_LAYOUT_DIRECTION" || text.starts_with("QShortcut: ") ||
           text.starts_with("QFileDialog: Alt+");
}

TEST(SpanishTextsTest, TheContextMenuOfAFieldIsSpanish) {
    const QtScreen screen;
    QLineEdit field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    QStringList captions;
    for (const QAction* action : menu->actions()) {
        captions.append(action->text().section(QLatin1Char('\t'), 0, 0));
    }
    EXPECT_EQ(captions.join(QLatin1Char(';')).toStdString(),
              "&Deshacer;&Rehacer;;Cor&tar;&Copiar;&Pegar;Eliminar;;Seleccionar todo");
}

TEST(SpanishTextsTest, EveryTextOfTheDialogsIsKnown) {
    Unknown unknown;
    SpanishTexts spanish;
    QApplication::installTranslator(&unknown);
    QApplication::installTranslator(&spanish);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    for (const auto mode : {QFileDialog::ExistingFile, QFileDialog::AnyFile, QFileDialog::Directory}) {
        QFileDialog dialog;
        dialog.setFileMode(mode);
        dialog.setAcceptMode(mode == QFileDialog::AnyFile ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
        dialog.show();
        QApplication::processEvents();
    }
    QMessageBox box(QMessageBox::Question, {}, {},
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Ok | QMessageBox::Cancel | QMessageBox::Save |
                        QMessageBox::Discard | QMessageBox::Close | QMessageBox::Open | QMessageBox::Retry);
    box.show();
    QPlainTextEdit memo;
    delete memo.createStandardContextMenu();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, false);
    QApplication::removeTranslator(&spanish);
    QApplication::removeTranslator(&unknown);
    std::erase_if(unknown.texts, needsNoTranslation);
    EXPECT_THAT(unknown.texts, IsEmpty());
}

TEST(SpanishTextsTest, AnUnknownTextStays) {
    EXPECT_TRUE(SpanishTexts().translate("Any", "not in the table", nullptr, -1).isNull());
}

}  // namespace
}  // namespace velmora::qt
