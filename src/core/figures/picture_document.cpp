#include "book/book_files.h"
#include "book/lock_trust.h"
#include "document/report_table.h"
#include "figures/book_picture.h"
#include "platform/engine/connection.h"
#include "platform/engine/steady_reading.h"
#include "platform/stop_check.h"

#include <algorithm>

namespace lorvan {
namespace {

constexpr int uprightHeight = 6400; // twips
constexpr int heightOfLyingPlace = 420;
constexpr int aroundLyingPlaces = 1000;
constexpr int highest = 11000;
constexpr int textColumn = 3400;
constexpr int tableWidth = 10800;

const ReportProgress noQuestions; // a table of a page or two

QString tableFormat(qsizetype columns)
{
    QString format = QStringLiteral("<%1").arg(textColumn);
    const qsizetype width = std::min<qsizetype>((tableWidth - textColumn) / std::max<qsizetype>(columns - 1, 1), 2000);
    for (qsizetype column = 1; column < columns; ++column)
        format += QStringLiteral("|>%1").arg(width);
    return format;
}

int chartHeight(const Chart& chart)
{
    if (chart.form == Chart::Form::Upright)
        return uprightHeight;
    return std::min(aroundLyingPlaces + static_cast<int>(chart.places.size()) * heightOfLyingPlace, highest);
}

void addTable(ReportDocument& document, const BookPicture& picture)
{
    ReportTable table(document, tableFormat(picture.columns.size()), noQuestions);
    const QStringList empty(picture.columns.size(), QStringLiteral(" "));
    table.begin(1, picture.columns.join(u'|'), empty.join(u'|'));
    for (std::size_t row = 0; row < picture.rows.size(); ++row) {
        table.addRow(picture.rows[row]);
        if (row < picture.subjects.size())
            document.RowStandsFor(picture.subjects[row]);
    }
    document.SetFont({.bold = true});
    table.addTotals(picture.sums);
    document.SetFont({.bold = false});
}

} // namespace

ReportDocument pictureDocument(const BookPicture& picture, const QString& heading)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.SetMargins({.left = 600, .right = 600});
    document.SetHeader(picture.title + QStringLiteral("   ") + heading);
    document.StartDoc();
    if (!picture.remark.isEmpty())
        document.Paragraph(picture.remark);
    if (!picture.chart.isEmpty())
        document.AddChart(picture.chart, chartHeight(picture.chart));
    if (picture.rows.empty())
        document.Paragraph(QStringLiteral("Δεν υπάρχουν κινήσεις."));
    else
        addTable(document, picture);
    document.EndDoc();
    return document;
}

ReportDocument buildPictureDocument(const PictureRequest& request, const QString& heading, const BookFiles& files,
    KeyRing& keys, const ReportProgress& progress)
{
    const StopCheck check([&progress] { return progress(0); });
    Connection main = openBookFile(files.mainDatabase(), keys);
    BookPicture picture;
    readSteadily(main, [&] { picture = readBookPicture(main, request); });
    return pictureDocument(picture, heading);
}

} // namespace lorvan
