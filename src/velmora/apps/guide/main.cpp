// velmora-guide TEXT FOLDER PDF: the guide's text (Markdown) with its pictures, whose names are relative to FOLDER, on
// A4. A picture that is not there is an error. Needs no display.

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>

#include "velmora/adapters/painting/fonts.h"
#include "velmora/adapters/painting/graphics.h"
#include "velmora/platform/version.h"

namespace {

using namespace velmora;

constexpr int wrongUse = 2;
constexpr double pictureScale = 0.43;   ///< a picture's pixels on paper, at 96 dots per inch
constexpr double smallScale = 0.6;      ///< the same for a small window
constexpr int widestSmall = 640;        ///< pixels
constexpr double tallestPicture = 420;  ///< on paper
constexpr int dotsPerInch = 300;

QString textOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    return QString::fromUtf8(file.readAll());
}

/// The pictures of one line, with the size that they get on paper.
void fitPicture(QTextDocument& document, const QTextFragment& fragment, const QString& folder) {
    QTextImageFormat format = fragment.charFormat().toImageFormat();
    const QString path = folder + QLatin1Char('/') + format.name();
    const QSize size = QImageReader(path).size();
    if (!size.isValid()) {
        throw std::runtime_error("no picture " + path.toStdString());
    }
    const double height =
        std::min(tallestPicture, size.height() * (size.width() > widestSmall ? pictureScale : smallScale));
    format.setName(path);
    format.setHeight(height);
    format.setWidth(height * size.width() / size.height());
    QTextCursor cursor(&document);
    cursor.setPosition(fragment.position());
    cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
    cursor.setCharFormat(format);
}

void fitPictures(QTextDocument& document, const QString& folder) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isImageFormat()) {
                fitPicture(document, part.fragment(), folder);
                break;  // the fragments of the block have been made anew
            }
        }
    }
}

void fitTables(QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            constexpr double padding = 3;
            QTextTableFormat format = table->format();
            format.setCellPadding(padding);
            format.setBorderCollapse(true);
            format.setTopMargin(2 * padding);
            format.setBottomMargin(2 * padding);
            table->setFormat(format);
        }
    }
}

/// The text laid out on the pages of a paper, with its margins and the number of each page.
class Pages {
  public:
    Pages(QTextDocument& document, QPdfWriter& paper)
        : document_(document),
          paper_(paper),
          size_(paper.width(), paper.height()),
          layout_(*document.documentLayout()) {
        layout_.setPaintDevice(&paper);
        QTextFrameFormat format = document.rootFrame()->frameFormat();
        format.setMargin(screenMargin);  // the layout scales it to the paper, as it does letters and pictures
        document.rootFrame()->setFrameFormat(format);
        document.setPageSize(size_);
    }

    /// A heading at the foot of a page, with nothing of what it heads, goes to the next page.
    void keepHeadings() {
        for (QTextBlock block = document_.begin(); block.isValid(); block = block.next()) {
            const QTextBlock following = block.next();
            if (block.blockFormat().headingLevel() == 0 || !following.isValid() || areOnOnePage(block, following)) {
                continue;
            }
            QTextBlockFormat format = block.blockFormat();
            if (format.pageBreakPolicy() != QTextFormat::PageBreak_AlwaysBefore) {
                format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
                QTextCursor(block).setBlockFormat(format);
                block = document_.begin();  // a heading above it may stand alone now
            }
        }
    }

    void paint() {
        QPainter painter(&paper_);
        for (int page = 0; page < document_.pageCount(); ++page) {
            if (page > 0) {
                paper_.newPage();
            }
            paintPage(painter, page);
        }
    }

  private:
    static constexpr double screenDots = 96;                       ///< in an inch
    static constexpr double screenMargin = 2 / 2.54 * screenDots;  ///< two centimetres

    double margin() const { return screenMargin * paper_.logicalDpiY() / screenDots; }
    int pageOf(double y) const { return static_cast<int>(y / size_.height()); }

    /// Whether the heading is on the page of the first line, picture or row below it.
    bool areOnOnePage(const QTextBlock& heading, const QTextBlock& following) const {
        const QRectF below = layout_.blockBoundingRect(following);
        const QTextLayout* lines = following.layout();
        const double height = lines->lineCount() > 0 ? lines->lineAt(0).rect().bottom() : below.height();
        return pageOf(layout_.blockBoundingRect(heading).top()) == pageOf(below.top() + height - 1);
    }

    void paintPage(QPainter& painter, int page) {
        const QRectF part(QPointF(0, page * size_.height()), size_);
        painter.save();
        painter.translate(-part.topLeft());
        painter.setClipRect(part);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = part;
        context.palette.setColor(QPalette::Text, Qt::black);
        layout_.draw(&painter, context);
        painter.restore();
        painter.setFont(QFont(document_.defaultFont(), &paper_));
        painter.drawText(QRectF(0, size_.height() - margin(), size_.width() - margin(), margin()),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(page + 1));
    }

    QTextDocument& document_;
    QPdfWriter& paper_;
    QSizeF size_;
    QAbstractTextDocumentLayout& layout_;
};

void write(const QString& text, const QString& folder, const QString& target) {
    QTextDocument document;
    constexpr double letters = 10;
    QFont font = painting::baseFont();
    font.setPointSizeF(letters);
    document.setDefaultFont(font);
    document.setMarkdown(textOf(text).replace(QLatin1String("@VERSION@"), QString::fromStdString(platform::version())),
                         QTextDocument::MarkdownDialectGitHub);
    fitPictures(document, folder);
    fitTables(document);
    QPdfWriter paper(target);
    paper.setResolution(dotsPerInch);
    paper.setPageSize(QPageSize(QPageSize::A4));
    paper.setPageMargins(QMarginsF());
    paper.setTitle(QStringLiteral("Guía de VELMORA"));
    Pages pages(document, paper);
    pages.keepHeadings();
    pages.paint();
    if (QFile(target).size() == 0) {
        throw std::runtime_error("cannot write " + target.toStdString());
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "velmora-guide TEXT FOLDER PDF\n";
        return wrongUse;
    }
    try {
        painting::Graphics graphics;
        graphics.require();
        write(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    } catch (const std::exception& e) {
        std::cerr << "velmora-guide: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
