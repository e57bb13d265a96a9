// A report of many rows: how soon its first page is there, how long a turn of the page and the whole PDF take, and how
// much memory it needs. The PDF stands beside the same cells drawn one by one in the same run.
#include "report_pages.h"
#include "report_pdf.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cstdio>
#include <random>

namespace {

using namespace lorvan;

const QString format = QStringLiteral("^800|1500|900|<3400|>1350|>1250|>1250");
const QString header = QStringLiteral(" α/α|Ημερ/νια|Κωδ.|Περιγραφή|Λ τάξεως|Εσοδα|Εξοδα");

ReportDocument largeReport(int rows)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.SetHeader(QStringLiteral("Εκτύπωση επιταγών από 01-01-2016 έως 31-12-2025   Κεντρικό"));
    document.SetTableBorder(1);
    document.AddTable(format, header, QStringLiteral(" |  | | ||"));
    document.SetTableBorder(0);
    for (int row = 1; row <= rows; ++row) {
        const QString number = QString::number(row).rightJustified(4);
        const QString description = QStringLiteral("ΕΙΣΠΡΑΞΗ ΠΕΛΑΤΗ %1").arg(row * 7919 % 99991);
        const QString amount = QStringLiteral("%1,%2").arg(row % 997).arg(row % 90 + 10);
        const bool isShaded = row % 2 == 1;
        document.AddTableRow(format, header, {number, u"Δε 21-11-2025", u"110", description, u" ", amount, u"0"},
            reportColour(255, 255, 0), isShaded ? reportColour(222, 225, 225) : noShade);
    }
    document.EndDoc();
    return document;
}

double millisecondsSince(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The process's memory in MB: `field` is "VmRSS" for now or "VmHWM" for its greatest.
double megabytes(const char* field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const qsizetype start = text.indexOf(field);
    const QList<QByteArray> words = text.mid(start, 100).simplified().split(' ');
    return start < 0 ? 0 : words.value(1).toDouble() / 1024;
}

void paintOnScreen(const ReportPages& pages, int page, QImage& screen)
{
    screen.fill(Qt::white);
    QPainter painter(&screen);
    painter.scale(96.0 / 1440, 96.0 / 1440);
    pages.paintPage(painter, page);
}

void turnPages(const ReportPages& pages, QImage& screen)
{
    std::mt19937 random(1);
    std::vector<double> turns;
    for (int turn = 0; turn < 200; ++turn) {
        QElapsedTimer timer;
        timer.start();
        paintOnScreen(pages, static_cast<int>(random() % static_cast<unsigned>(pages.pageCount())), screen);
        turns.push_back(millisecondsSince(timer));
    }
    std::sort(turns.begin(), turns.end());
    std::printf("| turn to any page, median and longest of 200 | %.1f ms, %.1f ms |\n", turns[100], turns.back());
}

void layOutInSlices(ReportPages& pages)
{
    double longest = 0;
    QElapsedTimer whole;
    whole.start();
    for (bool isComplete = false; !isComplete;) {
        QElapsedTimer slice;
        slice.start();
        isComplete = pages.layOut(QDeadlineTimer(10));
        longest = std::max(longest, millisecondsSince(slice));
    }
    std::printf("| all %d pages in slices of 10 ms, longest slice | %.0f ms, %.1f ms |\n", pages.pageCount(),
        millisecondsSince(whole), longest);
}

double wholePdf(ReportPages& pages)
{
    QElapsedTimer timer;
    timer.start();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    (void)writePdf(pages, buffer, {});
    std::printf("| size of the PDF | %.1f MB |\n", static_cast<double>(buffer.size()) / 1e6);
    return millisecondsSince(timer);
}

Qt::Alignment alignmentOf(const ReportColumn& column)
{
    switch (column.alignment) {
    case ColumnAlignment::Centre:
        return Qt::AlignHCenter;
    case ColumnAlignment::Right:
        return Qt::AlignRight;
    case ColumnAlignment::Left:
        break;
    }
    return Qt::AlignLeft;
}

/// The floor's cells stand where the program's do: 53 rows on a page, shaded alike.
double cellByCell(const ReportDocument& document)
{
    constexpr int rowsOnPage = 53;
    constexpr int rowHeight = 285;
    constexpr int rowWidth = 10450;
    QElapsedTimer timer;
    timer.start();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(1440);
    QPainter painter(&writer);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(200);
    painter.setFont(font);
    int onPage = 0;
    for (const ReportItem& row : document.rows()) {
        if (onPage == rowsOnPage) {
            writer.newPage();
            onPage = 0;
        }
        if (row.shade() != noShade)
            painter.fillRect(QRectF(0, onPage * rowHeight, rowWidth, rowHeight), QColor(222, 225, 225));
        double left = 0;
        for (std::size_t column = 0; column < row.columns().size(); ++column) {
            const ReportColumn& wanted = row.columns()[column];
            const QRectF box(left, onPage * rowHeight, wanted.width, rowHeight);
            painter.drawText(box, alignmentOf(wanted), row.cell(static_cast<int>(column)).toString());
            left += wanted.width;
        }
        ++onPage;
    }
    painter.end();
    return millisecondsSince(timer);
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const int rows = argc > 1 ? QByteArray(argv[1]).toInt() : 100'000;
    QImage screen(794, 1123, QImage::Format_RGB32);

    std::printf("%d rows of 7 columns; %.0f MB before\n\n| | |\n|---|---|\n", rows, megabytes("VmRSS"));
    QElapsedTimer timer;
    timer.start();
    ReportDocument document = largeReport(rows);
    std::printf("| a row into the document | %.2f us |\n", millisecondsSince(timer) * 1000 / rows);

    timer.start();
    ReportPages pages(std::move(document));
    paintOnScreen(pages, 0, screen);
    std::printf("| first page on screen | %.1f ms |\n", millisecondsSince(timer));
    layOutInSlices(pages);
    turnPages(pages, screen);
    timer.start();
    (void)pages.pageWith(SearchText(u"δεν υπάρχει"), 0, ReportPages::Direction::Forward);
    std::printf("| search through all pages for a text that is nowhere | %.0f ms |\n", millisecondsSince(timer));
    std::printf("| memory with everything laid out, greatest so far | %.0f MB, %.0f MB |\n", megabytes("VmRSS"),
        megabytes("VmHWM"));

    const double program = wholePdf(pages);
    std::printf("| greatest memory while writing the PDF | %.0f MB |\n", megabytes("VmHWM"));
    std::fflush(stdout);
    const double floor = cellByCell(pages.document());
    std::printf("| whole PDF | %.2f s |\n| the same cells one by one | %.2f s |\n| ratio | %.2f |\n", program / 1000,
        floor / 1000, program / floor);
}
