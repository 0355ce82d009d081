#include "velmora/apps/desktop/paper_window.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QStandardPaths>
#include <algorithm>
#include <memory>
#include <utility>

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/sheet_pages.h"
#include "velmora/adapters/documents/sheet_painter.h"
#include "velmora/adapters/painting/text.h"
#include "velmora/apps/desktop/paper_printer.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::desktop {

namespace {

constexpr int pageGap = 12;  ///< pixels, around each page
constexpr double leastZoom = 0.4;
constexpr double greatestZoom = 4;
constexpr double zoomStep = 1.2;
constexpr int leastHeight = 480;
constexpr QSize preferredSize{820, 1100};
constexpr QRgb ground = 0xFF8A949E;

std::optional<std::string> askSystemForPath(QWidget* parent, const std::string& offered) {
    QFileDialog dialog(parent, QStringLiteral("Guardar como PDF"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(QStringLiteral("Documentos PDF (*.pdf)"));
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.setDirectory(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    dialog.selectFile(QFileInfo(painting::toQt(offered)).fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return dialog.selectedFiles().front().toStdString();
}

bool askSystemForPrinter(QWidget* parent, QPrinter& printer, int pages) {
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace

PaperTools systemPaperTools() {
    return {.askPath = askSystemForPath, .askPrinter = askSystemForPrinter, .open = {}, .tell = {}};
}

/// The pages of one paper, one below the other.
class PaperPages : public QWidget {
  public:
    using QWidget::QWidget;

    void setSheet(const paper::Sheet& sheet) {
        pages_ = std::make_unique<documents::SheetPages>(sheet);
        setAccessibleName(painting::toQt(sheet.title));
    }
    int count() const { return static_cast<int>(pages_->count()); }
    void setPageWidth(double pixels) {
        scale_ = pixels / documents::SheetPages::pageSize().width();
        const QSizeF page = documents::SheetPages::pageSize() * scale_;
        setFixedSize(static_cast<int>(page.width()) + 2 * pageGap, topOf(count()) + pageGap);
        update();
    }
    /// Of a page counted from 0, above its gap.
    int topOf(int page) const {
        return static_cast<int>((documents::SheetPages::pageSize().height() * scale_ + pageGap) * page);
    }
    int pageAt(int y) const {
        const double height = documents::SheetPages::pageSize().height() * scale_ + pageGap;
        return std::clamp(static_cast<int>((y + height / 2) / height), 0, count() - 1);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), QColor(ground));
        const QSizeF page = documents::SheetPages::pageSize() * scale_;
        for (int i = 0; i < count(); ++i) {
            const QRectF place(QPointF(pageGap, topOf(i) + pageGap), page);
            if (!place.intersects(QRectF(event->rect()))) {
                continue;
            }
            painter.fillRect(place, Qt::white);
            painter.save();
            painter.translate(place.topLeft());
            painter.scale(scale_, scale_);
            pages_->paint(painter, static_cast<std::size_t>(i));
            painter.restore();
        }
    }

  private:
    std::unique_ptr<documents::SheetPages> pages_;
    double scale_ = 1;
};

PaperWindow::PaperWindow(const std::vector<documents::PrintedPaper>& papers, const PaperTools& tools, QWidget* parent)
    : QDialog(parent), papers_(papers), tools_(tools) {
    build();
    showPaper(0);
    const QSize room = screen()->availableSize();
    resize(preferredSize.boundedTo({room.width(), std::max(room.height() - 40, leastHeight)}));
}

PaperWindow::~PaperWindow() = default;

void PaperWindow::build() {
    pages_ = new PaperPages;
    scroll_ = new QScrollArea;
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    scroll_->setFocusPolicy(Qt::StrongFocus);
    QPalette dark = scroll_->palette();
    dark.setColor(QPalette::Window, QColor(ground));
    scroll_->setPalette(dark);
    scroll_->setAccessibleName(QStringLiteral("Páginas"));
    QObject::connect(scroll_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { tellPage(); });

    chooser_ = new QComboBox;
    chooser_->setAccessibleName(QStringLiteral("Papel"));
    place_ = new QLabel;
    auto* bar = new QHBoxLayout;
    const auto button = [&](const char* caption, auto action) {
        auto* made = new QPushButton(QString::fromUtf8(caption));
        made->setAutoDefault(false);
        QObject::connect(made, &QPushButton::clicked, this, action);
        return made;
    };
    bar->addWidget(chooser_);
    bar->addWidget(place_);
    bar->addStretch();
    bar->addWidget(button("&Imprimir… (Ctrl+P)", [this] { print(); }));
    bar->addWidget(button("&Guardar como PDF… (Ctrl+S)", [this] { save(); }));
    if (tools_.open) {
        bar->addWidget(button("&Abrir con su programa", [this] { tools_.open(shown().path); }));
    }
    bar->addWidget(button("&Cerrar (ESC)", [this] { reject(); }));

    auto* whole = new QVBoxLayout(this);
    whole->addLayout(bar);
    whole->addWidget(scroll_, 1);
    for (const documents::PrintedPaper& paper : papers_) {
        chooser_->addItem(painting::toQt(paper.sheet.title));
    }
    pages_->setSheet(papers_.front().sheet);
    scroll_->setWidget(pages_);
    QObject::connect(chooser_, &QComboBox::currentIndexChanged, this, [this](int index) { showPaper(index); });
    const auto key = [this](const QKeySequence& keys, auto action) {
        QObject::connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    key(QKeySequence(Qt::CTRL | Qt::Key_P), [this] { print(); });
    key(QKeySequence(Qt::Key_F8), [this] { print(); });
    key(QKeySequence(Qt::CTRL | Qt::Key_S), [this] { save(); });
    key(QKeySequence(Qt::CTRL | Qt::Key_Tab),
        [this] { chooser_->setCurrentIndex((current_ + 1) % static_cast<int>(papers_.size())); });
    key(QKeySequence(Qt::CTRL | Qt::Key_Plus), [this] { zoom(zoom_ * zoomStep); });
    key(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { zoom(zoom_ / zoomStep); });
    key(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { zoom(1); });
    scroll_->setFocus();
}

const documents::PrintedPaper& PaperWindow::shown() const {
    return papers_.at(static_cast<std::size_t>(current_));
}

int PaperWindow::pageCount() const {
    return pages_->count();
}

int PaperWindow::page() const {
    return pages_->pageAt(scroll_->verticalScrollBar()->value()) + 1;
}

void PaperWindow::showPaper(int index) {
    current_ = index;
    setWindowTitle(painting::toQt(shown().sheet.title));
    pages_->setSheet(shown().sheet);
    applyZoom();
    turnTo(1);
}

void PaperWindow::turnTo(int page) {
    scroll_->verticalScrollBar()->setValue(pages_->topOf(std::clamp(page, 1, pageCount()) - 1));
    tellPage();
}

void PaperWindow::zoom(double factor) {
    zoom_ = std::clamp(factor, leastZoom, greatestZoom);
    applyZoom();
}

void PaperWindow::applyZoom() {
    const int here = page();
    const int room = std::max(scroll_->width() - scroll_->verticalScrollBar()->sizeHint().width() - 2 * pageGap, 1);
    pages_->setPageWidth(room * zoom_);
    turnTo(here);
}

void PaperWindow::tellPage() {
    place_->setText(QStringLiteral("Página %1 de %2").arg(page()).arg(pageCount()));
}

void PaperWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    applyZoom();
}

void PaperWindow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageDown:
            scroll_->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
            break;
        case Qt::Key_PageUp:
            scroll_->verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepSub);
            break;
        case Qt::Key_Home:
            turnTo(1);
            break;
        case Qt::Key_End:
            turnTo(pageCount());
            break;
        default:
            QDialog::keyPressEvent(event);
    }
}

void PaperWindow::print() {
    QPrinter printer(QPrinter::HighResolution);
    if (tools_.askPrinter(this, printer, pageCount()) && !printSheet(shown().sheet, printer)) {
        tools_.tell("La impresora no ha aceptado el papel.");
    }
}

void PaperWindow::save() {
    const std::optional<std::string> path = tools_.askPath(this, shown().path);
    if (!path) {
        return;
    }
    try {
        documents::writeFile(*path, [this](QIODevice& out) { return documents::paintSheet(shown().sheet, out); });
    } catch (const runtime::RuntimeError& e) {
        tools_.tell(e.description());
    }
}

}  // namespace velmora::desktop
