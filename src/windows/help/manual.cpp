#include "help/manual.h"

#include "platform/search_text.h"

#include <QFile>
#include <QImage>
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>
#include <QUrl>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int lowestShownLevel = 3;
constexpr int tableWidth = 10400; // twips
constexpr int widestPicture = 8200; // twips: half a page high at most
constexpr double textPoints = 10;

bool isCode(const QTextBlock& block)
{
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage) || block.blockFormat().nonBreakableLines()
        || block.charFormat().fontFixedPitch();
}

double pointsOf(int level)
{
    switch (level) {
    case 1:
        return 16;
    case 2:
        return 14;
    case 3:
        return 12;
    default:
        return textPoints;
    }
}

QStringList picturesIn(const QTextBlock& block)
{
    QStringList names;
    for (auto part = block.begin(); !part.atEnd(); ++part)
        if (const QTextCharFormat format = part.fragment().charFormat(); format.isImageFormat())
            names += format.toImageFormat().name();
    return names;
}

QString fileOf(const QString& picture)
{
    return QStringLiteral(":/") + picture;
}

/// As large as on a screen of 96 dots to the inch, but not too wide.
void addPicture(ReportDocument& document, const QString& picture)
{
    constexpr int twipsInPixel = 15;
    const QSize size = QImage(fileOf(picture)).size() * twipsInPixel;
    if (size.isEmpty())
        return;
    const QSize fitting = size.scaled(std::min(size.width(), widestPicture), size.height(), Qt::KeepAspectRatio);
    document.AddPicture(fileOf(picture), fitting.height());
    document.Paragraph(u"\r");
}

void addBlock(ReportDocument& document, const QTextBlock& block)
{
    const QStringList pictures = picturesIn(block);
    for (const QString& picture : pictures)
        addPicture(document, picture);
    const int level = block.blockFormat().headingLevel();
    if (level > 0)
        document.Paragraph(u"\r");
    document.SetFont({.name = isCode(block) ? QStringLiteral("courier new greek") : QStringLiteral("Arial greek"),
        .size = pointsOf(level),
        .bold = level > 0});
    const QString mark = block.textList() ? QStringLiteral("•  ") : QString();
    if (const QString text = block.text().remove(QChar::ObjectReplacementCharacter);
        !text.isEmpty() || pictures.isEmpty())
        level > 0 ? document.Heading(text) : document.Paragraph(mark + text);
}

QString cellText(const QTextTable& table, int row, int column)
{
    QTextCursor cell = table.cellAt(row, column).firstCursorPosition();
    cell.setPosition(table.cellAt(row, column).lastPosition(), QTextCursor::KeepAnchor);
    return cell.selectedText().replace(QChar::ParagraphSeparator, u' ');
}

void addTable(ReportDocument& document, const QTextTable& table)
{
    QStringList widths;
    for (int column = 0; column < table.columns(); ++column)
        widths += QStringLiteral("<%1").arg(tableWidth / table.columns());
    const QString format = widths.join(u'|');
    document.SetFont({.name = QStringLiteral("Arial greek"), .size = textPoints, .bold = true});
    for (int row = 0; row < table.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columns(); ++column)
            cells += cellText(table, row, column);
        document.SetTableBorder(row == 0 ? 1 : 9);
        if (row == 0)
            document.AddTable(format, cells, QStringView());
        else
            document.AddTableRow(format, QStringView(), cells);
        document.SetFont({.bold = false});
    }
    document.SetTableBorder(0);
}

} // namespace

std::unique_ptr<QTextDocument> readManual()
{
    QFile file(QStringLiteral(":/manual.md"));
    auto manual = std::make_unique<QTextDocument>();
    if (file.open(QIODevice::ReadOnly))
        manual->setMarkdown(QString::fromUtf8(file.readAll()), QTextDocument::MarkdownDialectGitHub);
    return manual;
}

std::vector<ManualChapter> chaptersOf(const QTextDocument& manual)
{
    std::vector<ManualChapter> chapters;
    for (QTextBlock block = manual.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level > 1 && level <= lowestShownLevel)
            chapters.push_back({block.text(), level, block.position()});
    }
    return chapters;
}

QStringList picturesOf(const QTextDocument& manual)
{
    QStringList names;
    for (QTextBlock block = manual.begin(); block.isValid(); block = block.next())
        names += picturesIn(block);
    return names;
}

void fitPictures(QTextDocument& manual, int width, qreal ratio)
{
    for (const QString& name : picturesOf(manual)) {
        const QImage whole(fileOf(name));
        QImage picture = whole.scaledToWidth(qRound(std::min(width, whole.width()) * ratio), Qt::SmoothTransformation);
        picture.setDevicePixelRatio(ratio);
        manual.addResource(QTextDocument::ImageResource, QUrl(name), picture);
    }
    manual.markContentsDirty(0, manual.characterCount());
}

int findIn(const QTextDocument& manual, const QString& text, int from, bool isBackward)
{
    const SearchText sought(text);
    int last = -1;
    for (QTextBlock block = isBackward ? manual.begin() : manual.findBlock(from); block.isValid();
         block = block.next()) {
        const QString line = block.text();
        for (qsizetype at = sought.indexIn(line); at >= 0; at = sought.indexIn(line, at + 1)) {
            const int place = block.position() + static_cast<int>(at);
            if (!isBackward && place >= from)
                return place;
            if (isBackward && place >= from)
                return last;
            last = isBackward ? place : last;
        }
    }
    return isBackward ? last : -1;
}

ReportDocument manualDocument()
{
    const std::unique_ptr<QTextDocument> manual = readManual();
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = 850, .right = 650});
    document.StartDoc();
    const QTextTable* table = nullptr;
    for (QTextBlock block = manual->begin(); block.isValid(); block = block.next()) {
        const QTextTable* const inTable = QTextCursor(block).currentTable();
        if (!inTable)
            addBlock(document, block);
        else if (inTable != table)
            addTable(document, *inTable);
        table = inTable;
    }
    document.EndDoc();
    return document;
}

} // namespace lorvan
