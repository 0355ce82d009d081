#include "velmora/apps/desktop/paper_window.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPrinter>
#include <fstream>

#include <gmock/gmock.h>

#include "velmora/adapters/documents/sheet_pages.h"
#include "velmora/apps/desktop/paper_printer.h"

#include "support/command_output.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

int paperArgc = 1;
char paperProgram[] = "test";
char* paperArgv[] = {paperProgram, nullptr};

class PaperWindowTest : public ::testing::Test {
  protected:
    static paper::Sheet sheet(const std::string& title, int lines) {
        paper::Sheet made{.title = title, .name = title, .heading = {}};
        std::string text;
        for (int i = 1; i <= lines; ++i) {
            text += "línea" + std::to_string(i) + "\n";
        }
        made.blocks.emplace_back(paper::Paragraph{.title = "Observaciones", .text = text});
        return made;
    }
    static void press(QWidget& window, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&window, &event);
    }
    static std::string pdfText(const std::string& path) {
        return support::outputOf("pdftotext -layout '" + path + "' -");
    }
    /// A printer whose paper is a file.
    void printPages(int from, int to) {
        tools.askPrinter = [=, this](QWidget*, QPrinter& printer, int pages) {
            askedPages = pages;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(folder.file("printed.pdf")));
            if (from > 0) {
                printer.setFromTo(from, to);
            }
            return true;
        };
    }

    QApplication application{paperArgc, paperArgv};
    support::TemporaryFolder folder;
    std::vector<documents::PrintedPaper> papers{{sheet("Propuesta 000001", 150), folder.file("p.pdf")},
                                                {sheet("Hoja de corte 000001", 3), folder.file("h.pdf")}};
    std::vector<std::string> told;
    int askedPages = 0;
    PaperTools tools{
        .askPath = {}, .askPrinter = {}, .open = {}, .tell = [this](const std::string& text) { told.push_back(text); }};
};

TEST_F(PaperWindowTest, PagesAreTurnedByKeys) {
    PaperWindow window(papers, tools, nullptr);
    window.show();
    ASSERT_EQ(window.pageCount(), 3);
    EXPECT_EQ(window.page(), 1);
    for (int i = 0; i < 3 && window.page() == 1; ++i) {
        press(window, Qt::Key_PageDown);
    }
    EXPECT_EQ(window.page(), 2);
    for (int i = 0; i < 3 && window.page() == 2; ++i) {
        press(window, Qt::Key_PageUp);
    }
    EXPECT_EQ(window.page(), 1);
    press(window, Qt::Key_End);
    EXPECT_EQ(window.page(), 3);
    press(window, Qt::Key_Home);
    EXPECT_EQ(window.page(), 1);
}

TEST_F(PaperWindowTest, EachPaperIsShownFromItsFirstPage) {
    PaperWindow window(papers, tools, nullptr);
    window.show();
    press(window, Qt::Key_End);
    window.findChild<QComboBox*>()->setCurrentIndex(1);
    EXPECT_EQ(window.shown().sheet.title, "Hoja de corte 000001");
    EXPECT_EQ(window.pageCount(), 1);
    EXPECT_EQ(window.page(), 1);
    EXPECT_EQ(window.windowTitle().toStdString(), "Hoja de corte 000001");
}

TEST_F(PaperWindowTest, TheChosenPagesArePrinted) {
    printPages(2, 2);
    PaperWindow window(papers, tools, nullptr);
    window.print();
    EXPECT_EQ(askedPages, 3);
    const std::string text = pdfText(folder.file("printed.pdf"));
    EXPECT_THAT(text, HasSubstr("Página 2 de 3"));
    EXPECT_THAT(text, Not(HasSubstr("Página 1 de 3")));
    EXPECT_THAT(text, Not(HasSubstr("Página 3 de 3")));
    EXPECT_THAT(support::outputOf("LC_ALL=C pdfinfo '" + folder.file("printed.pdf") + "'"), HasSubstr("(A4)"));
}

TEST_F(PaperWindowTest, WithoutAChoiceAllPagesArePrinted) {
    printPages(0, 0);
    PaperWindow window(papers, tools, nullptr);
    window.print();
    EXPECT_THAT(support::outputOf("LC_ALL=C pdfinfo '" + folder.file("printed.pdf") + "'"),
                HasSubstr("Pages:           3"));
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(PaperWindowTest, APrinterThatFailsIsTold) {
    tools.askPrinter = [&](QWidget*, QPrinter& printer, int) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QStringLiteral("/no such folder/printed.pdf"));
        return true;
    };
    PaperWindow window(papers, tools, nullptr);
    window.print();
    EXPECT_THAT(told, ElementsAre("La impresora no ha aceptado el papel."));
}

TEST_F(PaperWindowTest, ThePaperIsSavedElsewhere) {
    tools.askPath = [&](QWidget*, const std::string& offered) {
        EXPECT_EQ(offered, folder.file("p.pdf"));
        return std::optional(folder.file("elsewhere.pdf"));
    };
    PaperWindow window(papers, tools, nullptr);
    window.save();
    EXPECT_THAT(pdfText(folder.file("elsewhere.pdf")), HasSubstr("Página 3 de 3"));
    tools.askPath = [](QWidget*, const std::string&) { return std::optional(std::string("/no such folder/x.pdf")); };
    window.save();
    EXPECT_THAT(told, ElementsAre(HasSubstr("La carpeta no existe.")));
}

TEST_F(PaperWindowTest, EscCloses) {
    PaperWindow window(papers, tools, nullptr);
    window.show();
    press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace velmora::desktop
