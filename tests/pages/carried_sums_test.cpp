#include "document/report_cells.h"
#include "report_page.h"
#include "report_pages.h"
#include "reports/cheque_report.h"
#include "reports/daily_cash_report.h"
#include "reports/group_card_report.h"
#include "reports/movements_by_code_report.h"
#include "reports/movements_by_group_report.h"
#include "support/temporary_book.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

Currency euros(int count)
{
    return Currency::fromTenThousandths(count * Currency::unitsPerEuro);
}

/// Sections of that many rows, each with a subtotal; the rows count 1, 2, 3 and so on in euro.
ReportDocument sections(const std::vector<int>& lengths)
{
    const QString format = "<4000|>2000";
    ReportDocument document;
    document.StandardPageSetup();
    document.StartDoc();
    document.AddTable(format, QStringView(u"Τίτλος|Ποσό"), QStringView(u" | "));
    int number = 0;
    for (std::size_t section = 0; section < lengths.size(); ++section) {
        document.BeginCarry({1}, QString("ενότητα %1").arg(section));
        for (int row = 0; row < lengths[section]; ++row) {
            ++number;
            document.AddTableRow(format, QStringView(), {QString::number(number), QString::number(number)});
            document.CarryRow({euros(number)});
        }
        document.AddTableRow(format, QStringView(), QStringView(u"Υποσύνολο|"));
    }
    document.EndCarry();
    document.AddTableRow(format, QStringView(), QStringView(u"Σύνολα|"));
    document.EndDoc();
    return document;
}

struct CarriedPage {
    QString head;
    QString foot;
    std::vector<int> rows;
};

QString lineAt(const ReportPage& page, std::size_t first)
{
    return page.carriedTexts()[first].text.toString() + '|' + page.carriedTexts()[first + 1].text.toString();
}

/// The pages as they are placed, with what is read of them.
std::vector<CarriedPage> pagesOf(const ReportDocument& document, CarryLines carries)
{
    const ReportLayout layout(document, carries);
    const ReportFlow flow(layout);
    std::vector<CarriedPage> pages;
    for (std::optional<FlowPosition> start = FlowPosition(); start;) {
        std::vector<FlowBlock> blocks;
        const auto next = flow.fillPage(*start, &blocks);
        const ReportPage page(layout, blocks, 1);
        CarriedPage read;
        std::size_t carried = 0;
        for (const FlowBlock& block : blocks) {
            if (block.kind == FlowBlock::Kind::CarriedIn)
                read.head = lineAt(page, 2 * carried++);
            else if (block.kind == FlowBlock::Kind::CarriedOn)
                read.foot = lineAt(page, 2 * carried++);
            else if (const int number = document.item(block.item).cell(0).toInt(); number > 0)
                read.rows.push_back(number);
            EXPECT_LE(block.top + block.size.heightOf(block.lines), layout.body().height());
        }
        EXPECT_FALSE(page.text().contains("μεταφορά"));
        pages.push_back(read);
        start = next;
    }
    return pages;
}

/// The same rows, none of which adds up.
ReportDocument withoutSums(const ReportDocument& document)
{
    ReportDocument plain = document;
    plain.StartDoc();
    for (int index = 0; index < document.itemCount(); ++index) {
        const ReportItem item = document.item(index);
        QStringList columns;
        for (const ReportColumn& column : item.columns())
            columns += QChar(u"<^>"[static_cast<int>(column.alignment)]) + QString::number(column.width);
        const QString format = columns.join(u'|');
        const QStringList cells = item.cells();
        plain.SetFont({item.font().name, item.font().size, item.font().bold});
        plain.SetTextColor(item.textColour());
        plain.SetTableBorder(item.border());
        if (item.isParagraph())
            plain.Paragraph(item.text());
        else if (item.isTitles())
            plain.AddTable(format, cells, QStringView(), item.shade());
        else if (item.titlesItem() < 0)
            plain.AddTable(format, QStringView(), cells);
        else
            plain.AddTableRow(format, QStringView(), cells, noShade, item.shade());
    }
    return plain;
}

std::vector<QImage> painted(const ReportDocument& document, CarryLines carries)
{
    constexpr double pixelsInTwip = 1.0 / 15;
    ReportPages pages(document, carries);
    pages.layOut();
    std::vector<QImage> images;
    for (int page = 0; page < pages.pageCount(); ++page) {
        QImage& image = images.emplace_back((pages.pageSize() * pixelsInTwip).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(pixelsInTwip, pixelsInTwip);
        pages.paintPage(painter, page);
    }
    return images;
}

} // namespace

TEST(CarriedSums, FootAndHeadHaveTheSumOfTheSectionUpToThere)
{
    for (const std::vector<int>& lengths : {std::vector{150}, std::vector{20, 55, 1, 60}, std::vector{45, 45, 45}}) {
        const ReportDocument document = sections(lengths);
        const std::vector<CarriedPage> pages = pagesOf(document, CarryLines::Yes);
        ASSERT_GT(pages.size(), 2U);
        std::vector<int> ends; // the last row of each section
        for (const int length : lengths)
            ends.push_back(length + (ends.empty() ? 0 : ends.back()));
        EXPECT_EQ(pages.back().rows.empty() ? ends.back() : pages.back().rows.back(), ends.back());
        int last = 0;
        for (std::size_t page = 0; page + 1 < pages.size(); ++page) {
            last = pages[page].rows.empty() ? last : pages[page].rows.back();
            const auto section = std::lower_bound(ends.begin(), ends.end(), last) - ends.begin();
            int sum = 0;
            for (int row = last; row > (section == 0 ? 0 : ends[static_cast<std::size_t>(section) - 1]); --row)
                sum += row;
            const QString carried = QString("  ενότητα %1|").arg(section) + amountOrBlankText(euros(sum));
            if (pages[page].foot.isEmpty()) { // broken between two sections, or before the totals
                EXPECT_EQ(last, ends[static_cast<std::size_t>(section)]);
                EXPECT_EQ(pages[page + 1].head, "");
            } else {
                EXPECT_EQ(pages[page].foot, "Σε μεταφορά" + carried);
                EXPECT_EQ(pages[page + 1].head, "Από μεταφορά" + carried);
            }
        }
    }
}

TEST(CarriedSums, ChangeNoPixelUnlessTheyAreWanted)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    main.execute(
        "UPDATE kvdikoi SET omada='Α', aa_omadas=1; WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM"
        " n WHERE i<150) INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh, esoda, ejoda, L_tajeos, epitagh,"
        " aa_omada) SELECT 100*(1+i/80), 20240301, 'κίνηση '||i, i*10001, i*(i/80), i, -1, 1 FROM n");
    ReportInputs inputs{"1-3-24", "1-3-24", QDate(2024, 3, 1), QDate(2024, 3, 1), "Κεντρικό", {}, {}};
    inputs.cardColumns[0] = {"Α", {1}};
    const struct {
        const char* name;
        ReportDocument document;
    } cases[] = {
        {"1 daily cash", dailyCashReport(main, inputs, {})},
        {"4 by code", movementsByCodeReport(main, inputs)},
        {"5 by group", movementsByGroupReport(main, inputs)},
        {"6 group card", groupCardReport(main, inputs)},
        {"7 cheques", chequeReport(main, inputs)},
    };
    for (const auto& [name, document] : cases) {
        const ReportDocument plain = withoutSums(document);
        ASSERT_TRUE(plain == document && plain.carried().isEmpty()) << name;
        const std::vector<QImage> expected = painted(plain, CarryLines::Yes);
        EXPECT_TRUE(painted(document, CarryLines::No) == expected) << name;
        EXPECT_FALSE(painted(document, CarryLines::Yes) == expected) << name << ": nothing to carry";
    }
}

TEST(CarriedSums, OverflowIsAnError)
{
    ReportDocument document = sections({150});
    document.BeginCarry({1});
    document.CarryRow({Currency::fromTenThousandths(std::numeric_limits<std::int64_t>::max())});
    EXPECT_THROW(document.CarryRow({euros(1)}), CurrencyOverflow);
}

} // namespace lorvan::test
