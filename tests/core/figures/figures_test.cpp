#include "cashbook/cash_book.h"
#include "core/reports/report_text.h"
#include "figures/book_picture.h"
#include "figures/code_card.h"
#include "platform/amount_text.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

QString daysOf(const FigureSpan& span)
{
    return span.from.toString("d/M/yyyy") + '-' + span.to.toString("d/M/yyyy");
}

QString textOf(const CashFigure& figure)
{
    return amountText(figure.income) + ' ' + amountText(figure.expense) + ' '
        + (figure.balance ? amountText(*figure.balance) : QString("-"));
}

class FiguresTest : public testing::Test {
protected:
    FiguresTest()
    {
        temporary.addCode(300, "Ενοίκιο", false);
        for (const MovementDraft& movement :
            {incomeOf({2022, 12, 31}, cents(10'000)), expenseOf({2023, 3, 5}, cents(2'500), "χαρτί"),
                incomeOf({2024, 3, 11}, cents(700)), incomeOf({2024, 3, 17}, cents(300)),
                expenseOf({2024, 3, 18}, cents(50)), expenseOf({2024, 5, 1}, cents(40), "μολύβια")})
            EXPECT_TRUE(std::holds_alternative<ChangedDay>(cashBook.insert(movement)));
    }

    TemporaryBook temporary;
    Book book = temporary.open();
    CashBook cashBook{book, byAll()};
};

} // namespace

TEST(FigureSpans, AreWholeStepsWithTheDayAndMeetTheirNeighbours)
{
    const struct {
        FigureStep step;
        QDate day;
        const char* span;
        const char* before;
        const char* after;
        const char* text;
    } cases[] = {
        {FigureStep::Day, {2024, 2, 29}, "1/2/2024-29/2/2024", "1/1/2024-31/1/2024", "1/3/2024-31/3/2024",
            "Φεβρουάριος 2024"},
        {FigureStep::Day, {2024, 1, 31}, "1/1/2024-31/1/2024", "1/12/2023-31/12/2023", "1/2/2024-29/2/2024",
            "Ιανουάριος 2024"},
        {FigureStep::Week, {2024, 12, 31}, "1/1/2024-5/1/2025", "26/12/2022-31/12/2023", "30/12/2024-4/1/2026", "2024"},
        {FigureStep::Month, {2024, 2, 29}, "1/1/2024-31/12/2024", "1/1/2023-31/12/2023", "1/1/2025-31/12/2025", "2024"},
        {FigureStep::Year, {2024, 7, 1}, "1/1/2015-31/12/2024", "1/1/2005-31/12/2014", "1/1/2025-31/12/2034",
            "2015–2024"},
    };
    for (const auto& one : cases) {
        const FigureSpan span = spanWith(one.day, one.step);
        EXPECT_EQ(daysOf(span), one.span);
        EXPECT_EQ(daysOf(spanBeside(span, -1)), one.before) << one.span;
        EXPECT_EQ(daysOf(spanBeside(span, 1)), one.after) << one.span;
        EXPECT_EQ(spanText(span), one.text);
    }
}

TEST_F(FiguresTest, ADayCountsInItsStepAndABalanceGoesOnToTheLastDay)
{
    const auto figures = [this](QDate day, FigureStep step) {
        QStringList texts;
        for (const CashFigure& figure : readCashFigures(book.main(), spanWith(day, step)))
            texts += textOf(figure);
        return texts;
    };
    const QStringList years = figures({2024, 1, 1}, FigureStep::Year);
    EXPECT_EQ(years.mid(6), (QStringList{"0,00 0,00 -", "100,00 0,00 100,00", "0,00 25,00 75,00", "10,00 0,90 84,10"}));
    const QStringList months = figures({2024, 1, 1}, FigureStep::Month);
    EXPECT_EQ(months.mid(0, 6),
        (QStringList{"0,00 0,00 75,00", "0,00 0,00 75,00", "10,00 0,50 84,50", "0,00 0,00 84,50", "0,00 0,40 84,10",
            "0,00 0,00 -"}));
    const QStringList weeks = figures({2024, 1, 1}, FigureStep::Week);
    EXPECT_EQ(weeks.mid(10, 2), (QStringList{"10,00 0,00 85,00", "0,00 0,50 84,50"})); // Sunday, then Monday
    EXPECT_EQ(figures({2024, 3, 1}, FigureStep::Day).mid(16, 2), (QStringList{"3,00 0,00 85,00", "0,00 0,50 84,50"}));
}

TEST_F(FiguresTest, TheTableHasWhatTheChartDraws)
{
    const FigureSpan span = spanWith({2024, 1, 1}, FigureStep::Month);
    const BookPicture cash = readBookPicture(book.main(), {PictureSubject::Cash, span, true});
    EXPECT_EQ(cash.rows[2].join('|'), "Μάρτιος 2024|10,00|0,50|84,50|0,00|25,00|75,00");
    EXPECT_EQ(cash.sums.join('|'), "Σύνολα|10,00|0,90||0,00|25,00|");
    EXPECT_EQ(cash.chart.panels[1].series.size(), 4U);
    EXPECT_EQ(cash.chart.panels[1].series[3].values[2], cents(2'500));

    const auto rowsOf = [&](PictureSubject subject) {
        QStringList rows;
        for (const QStringList& row : readBookPicture(book.main(), {subject, span, false}).rows)
            rows += row.join('|');
        return rows.join('\n');
    };
    EXPECT_EQ(rowsOf(PictureSubject::Groups), "Πωλήσεις|10,00|0,00\nΧωρίς ομάδα|0,00|0,90");
    EXPECT_EQ(rowsOf(PictureSubject::Codes), "100 Λιανική|10,00|0,00\n200 Προμήθειες|0,00|0,90");
    const BookPicture days =
        readBookPicture(book.main(), {PictureSubject::Cash, spanWith({2024, 3, 1}, FigureStep::Day), true});
    EXPECT_EQ(pictureDocument(days, {}).rows().at(17).subject(0), (RowSubject{RowSubject::Kind::Day, 20240317}));
    EXPECT_FALSE(pictureDocument(cash, {}).hasSubjects());
    const QString paper = wholeOf(pictureDocument(cash, "Κεντρικό"));
    EXPECT_TRUE(paper.contains("Μάρτιος 2024|10,00|0,50|84,50|0,00|25,00|75,00")) << paper.toStdString();
}

TEST_F(FiguresTest, ACardCoversTheMonthsOfItsMovements)
{
    const CodeCard card = readCodeCard(book.main(), TemporaryBook::expenseCode);
    EXPECT_EQ(cardTitle(card), "200 Προμήθειες");
    ASSERT_EQ(card.months.size(), 15U); // March of one year to May of the next
    EXPECT_EQ(card.months.front().expense, cents(2'500));
    EXPECT_EQ(card.months.back().expense, cents(40));
    EXPECT_EQ(card.expense, cents(2'590));
    EXPECT_EQ(card.averageExpense(), cents(173)); // 172.67
    EXPECT_EQ(card.last.value_or(Movement()).description, "μολύβια");

    temporary.execute("UPDATE kinhseis SET hmeromhnia=20000105 WHERE aa=2");
    const CodeCard old = readCodeCard(book.main(), TemporaryBook::expenseCode);
    ASSERT_EQ(old.months.size(), 120U);
    EXPECT_EQ(old.months.front().from, QDate(2014, 6, 1));
    EXPECT_EQ(old.expense, cents(90));
    EXPECT_TRUE(readCodeCard(book.main(), 300).months.empty());
    EXPECT_FALSE(readCodeCard(book.main(), 301).code);
}

} // namespace lorvan::test
