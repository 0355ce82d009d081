#pragma once
// The preview of printed papers: their pages, printing with pages chosen, saving elsewhere.

#include <QDialog>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "velmora/adapters/documents/proposal_printing.h"

class QComboBox;
class QLabel;
class QPrinter;
class QScrollArea;

namespace velmora::desktop {

class PaperPages;

/// What the window asks the user and the machine for; replaced in tests.
struct PaperTools {
    /// A path to save to, offered with this one; nullopt when the user cancels.
    std::function<std::optional<std::string>(QWidget*, const std::string&)> askPath;
    /// Sets the printer and the pages; false when the user cancels. `pages`: of the paper.
    std::function<bool(QWidget*, QPrinter&, int pages)> askPrinter;
    /// Opens the paper's file with its program; errors: those of the services.
    std::function<void(const std::string&)> open;
    /// Tells a failure.
    std::function<void(const std::string&)> tell;
};

/// The dialogs of the system.
PaperTools systemPaperTools();

/// Keys: Ctrl+P or F8 prints, Ctrl+S saves, Ctrl+Tab shows the next paper, PgUp and PgDn scroll, Home and End go to
/// the first and last page, Ctrl with plus, minus and 0 change the size, Esc closes.
class PaperWindow : public QDialog {
  public:
    /// There is at least one paper. Papers and tools must outlive the window.
    PaperWindow(const std::vector<documents::PrintedPaper>& papers, const PaperTools& tools, QWidget* parent);
    ~PaperWindow() override;

    /// The paper that is shown, and its pages.
    const documents::PrintedPaper& shown() const;
    int pageCount() const;
    /// The page at the top of the window, from 1.
    int page() const;

    void print();
    void save();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void build();
    void showPaper(int index);
    void turnTo(int page);
    void zoom(double factor);
    void applyZoom();
    void tellPage();

    const std::vector<documents::PrintedPaper>& papers_;
    const PaperTools& tools_;
    int current_ = 0;
    double zoom_ = 1;  ///< 1: the page is as wide as the window
    QComboBox* chooser_ = nullptr;
    QScrollArea* scroll_ = nullptr;
    PaperPages* pages_ = nullptr;
    QLabel* place_ = nullptr;
};

}  // namespace velmora::desktop
