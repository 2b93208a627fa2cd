// Prints the user's guide: build_help docs/help.md data/Tovrel-Help.pdf
//
// A rule in the source ("---") in front of a heading begins a new page.
// Pictures lie where the source says, relative to it. A paragraph with a link to a heading
// ("#first-steps") is an entry of the contents and gets the number of its page. The same source
// gives the same pages; the file also holds the time at which it was made.

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QImageReader>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cstdio>

namespace {

constexpr int resolution = 300;          // dots an inch
constexpr double pictureScale = 0.72;    // of the size on a screen of 96 dots an inch
constexpr double tallestPicture = 300.0; // on paper, a page being some 970 high
constexpr double contentsWidth = 360.0;  // from a title to the end of its page number
constexpr double margin = 20.0;          // millimetres
constexpr double footerGap = 8.0;        // millimetres below the text

/// Size of a heading in points, by its level from 1.
double headingSize(int level) {
    constexpr std::array<double, 3> sizes = {24.0, 16.0, 12.5};
    return sizes[static_cast<std::size_t>(std::min(level, 3) - 1)];
}

/// A heading that begins with this mark begins a page.
constexpr QChar pageMark(0xE000);

/// @param block a heading; a mark of a new page is taken off its text
void setHeading(const QTextBlock& block) {
    const int level = block.blockFormat().headingLevel();
    QTextCursor cursor(block);
    QTextBlockFormat format;
    format.setTopMargin(level == 1 ? 0.0 : 16.0);
    format.setBottomMargin(6.0);
    if (block.text().startsWith(pageMark)) {
        cursor.deleteChar();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    cursor.mergeBlockFormat(format);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    QTextCharFormat characters;
    characters.setFontPointSize(headingSize(level));
    characters.setFontWeight(QFont::Bold);
    characters.setForeground(QColor(0x1F, 0x4E, 0x79));
    cursor.setCharFormat(characters);
}

/// Gives each picture of a paragraph its size on paper, and centres the paragraph.
/// @return false when a picture can't be read
bool setPictures(const QTextBlock& block, const QString& folder) {
    QTextDocument& document = *QTextCursor(block).document();
    for (auto at = block.begin(); !at.atEnd(); ++at) {
        QTextImageFormat picture = at.fragment().charFormat().toImageFormat();
        if (!picture.isValid()) {
            continue;
        }
        const QImage image = QImageReader(folder + '/' + picture.name()).read();
        if (image.isNull()) {
            std::fprintf(stderr, "build_help: no picture %s\n", qPrintable(picture.name()));
            return false;
        }
        document.addResource(QTextDocument::ImageResource, QUrl(picture.name()), image);
        const double scale = std::min(pictureScale, tallestPicture / image.height());
        picture.setWidth(image.width() * scale);
        picture.setHeight(image.height() * scale);
        QTextCursor cursor(&document);
        cursor.setPosition(at.fragment().position());
        cursor.setPosition(at.fragment().position() + at.fragment().length(),
                           QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture);
        QTextBlockFormat format;
        format.setAlignment(Qt::AlignHCenter);
        format.setLineHeight(100.0, QTextBlockFormat::SingleHeight);
        format.setTopMargin(6.0);
        format.setBottomMargin(8.0);
        cursor.mergeBlockFormat(format);
        break; // a paragraph has one picture: the walk ends where the text was changed
    }
    return true;
}

void setTable(QTextTable& table) {
    QTextTableFormat format = table.format();
    format.setBorder(1.0);
    format.setBorderCollapse(true);
    format.setHeaderRowCount(1); // again on a further page
    format.setBorderBrush(QColor(0xB0, 0xB0, 0xB0));
    format.setCellPadding(3.0);
    format.setCellSpacing(0.0);
    format.setTopMargin(4.0);
    format.setBottomMargin(10.0);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    const auto percent = [](double part) {
        return QTextLength(QTextLength::PercentageLength, part);
    };
    format.setColumnWidthConstraints(
        table.columns() == 2 ? QList<QTextLength>{percent(33), percent(67)}
                             : QList<QTextLength>{percent(34), percent(48), percent(18)});
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextCharFormat cell = table.cellAt(0, column).format();
        cell.setBackground(QColor(0xE8, 0xEE, 0xF4));
        table.cellAt(0, column).setFormat(cell);
    }
}

bool setUp(QTextDocument& document, const QString& folder) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        format.setLineHeight(118.0, QTextBlockFormat::ProportionalHeight);
        QTextCursor cursor(block);
        cursor.mergeBlockFormat(format);
        if (block.blockFormat().headingLevel() > 0) {
            setHeading(block);
        } else if (QTextTable* table = cursor.currentTable()) {
            if (cursor.position() == table->firstPosition()) {
                setTable(*table);
            }
        } else if (!setPictures(block, folder)) {
            return false;
        }
    }
    return true;
}

/// What a link to a heading calls it.
QString slugOf(const QString& heading) {
    static const QRegularExpression others(QStringLiteral("[^a-z0-9 -]"));
    return heading.toLower().remove(others).replace(' ', '-');
}

/// Tells the page of each entry of the contents. They must all stand on the first page, which ends
/// by a rule: then no heading moves.
/// @return false when a link leads nowhere
bool addPageNumbers(QTextDocument& document) {
    QHash<QString, int> pages;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
            const double top = document.documentLayout()->blockBoundingRect(block).top();
            pages[slugOf(block.text())] = static_cast<int>(top / document.pageSize().height()) + 1;
        }
    }
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QString link = block.begin().fragment().charFormat().anchorHref();
        if (!link.startsWith('#')) {
            continue;
        }
        const int page = pages.value(link.mid(1));
        if (page == 0) {
            std::fprintf(stderr, "build_help: no heading %s\n", qPrintable(link));
            return false;
        }
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.setCharFormat(QTextCharFormat()); // nothing to click on paper
        QTextBlockFormat format;
        const QTextOption::Tab end(contentsWidth, QTextOption::RightTab);
        format.setTabPositions({end});
        format.setTopMargin(0.0);
        format.setBottomMargin(0.0);
        cursor.mergeBlockFormat(format);
        cursor.movePosition(QTextCursor::EndOfBlock);
        cursor.insertText('\t' + QString::number(page));
    }
    return true;
}

/// Writes the pages, each with its number below the text.
void print(QTextDocument& document, QPdfWriter& writer) {
    QPainter painter(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    const QRectF page(QPointF(0.0, 0.0), document.pageSize());
    QFont footer = document.defaultFont();
    footer.setPointSizeF(9.0);
    painter.setFont(footer);
    for (int number = 1; number <= document.pageCount(); ++number) {
        if (number > 1) {
            writer.newPage();
        }
        painter.save();
        painter.translate(0.0, -(number - 1) * page.height());
        document.drawContents(&painter, page.translated(0.0, (number - 1) * page.height()));
        painter.restore();
        const double below = footerGap / 25.4 * resolution;
        painter.drawText(QRectF(0.0, page.height(), page.width(), below),
                         Qt::AlignHCenter | Qt::AlignBottom, QString::number(number));
    }
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: build_help SOURCE.md GUIDE.pdf\n");
        return 2;
    }
    QFile source(arguments[1]);
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "build_help: can't read %s\n", qPrintable(arguments[1]));
        return 1;
    }

    QSaveFile guide(arguments[2]);
    if (!guide.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "build_help: can't write %s\n", qPrintable(arguments[2]));
        return 1;
    }
    QPdfWriter writer(&guide);
    writer.setResolution(resolution);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    writer.setTitle(QStringLiteral("Tovrel: user's guide"));
    writer.setCreator(QStringLiteral("Tovrel"));

    QTextDocument document;
    document.documentLayout()->setPaintDevice(&writer);
    document.setDocumentMargin(0.0);
    QFont font(QStringLiteral("Arial"), 11);
    font.setStyleHint(QFont::SansSerif);
    document.setDefaultFont(font);
    const QRegularExpression rule(QStringLiteral("^---\n\n(#+ )"),
                                  QRegularExpression::MultilineOption);
    document.setMarkdown(
        QString::fromUtf8(source.readAll()).replace(rule, QStringLiteral("\\1") + pageMark));
    if (!setUp(document, QFileInfo(source).path())) {
        return 1;
    }
    document.setPageSize(QSizeF(writer.width(), writer.height()));
    if (!addPageNumbers(document)) {
        return 1;
    }
    print(document, writer);
    if (!guide.commit()) {
        std::fprintf(stderr, "build_help: can't write %s\n", qPrintable(arguments[2]));
        return 1;
    }
    std::printf("%d pages\n", document.pageCount());
    return 0;
}
