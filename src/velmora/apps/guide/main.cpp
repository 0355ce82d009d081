// velmora-guide TEXT FOLDER PDF: the guide's text (Markdown) with its pictures, whose names are relative to FOLDER, on
// A4. A picture that is not there is an error. Needs no display.

#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
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
    paper.setTitle(QStringLiteral("Guía de VELMORA"));
    document.print(&paper);
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
