#include "report_page.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lorvan {

namespace {

/// A document with everything that stands on its pages.
struct Laid {
    explicit Laid(ReportDocument source)
        : document(std::move(source))
        , layout(document)
    {
        const ReportFlow flow(layout);
        for (std::optional<FlowPosition> start = FlowPosition(); start && pages.size() < 500;) {
            std::vector<FlowBlock> blocks;
            start = flow.fillPage(*start, &blocks);
            pages.emplace_back(layout, blocks, static_cast<int>(pages.size()) + 1);
        }
    }

    [[nodiscard]] QStringList texts(std::size_t page) const
    {
        QStringList texts;
        for (const PlacedText& placed : pages[page].texts())
            texts.append(placed.text.toString());
        return texts;
    }

    /// Every page's texts between blanks, the pages between bars.
    [[nodiscard]] QString allTexts() const
    {
        QStringList all;
        for (std::size_t page = 0; page < pages.size(); ++page)
            all.append(texts(page).join(u' '));
        return all.join(u'|');
    }

    ReportDocument document;
    ReportLayout layout;
    std::vector<ReportPage> pages;
};

ReportDocument tableOf(const QString& format, const QStringList& rows)
{
    ReportDocument document;
    document.SetFooter(QString());
    document.AddTable(format, QString("Τίτλος"), QString());
    for (const QString& row : rows)
        document.AddTableRow(format, QString(), row);
    return document;
}

QStringList numbers(int count)
{
    QStringList texts;
    for (int number = 1; number <= count; ++number)
        texts.append(QString::number(number));
    return texts;
}

float rightOf(const PlacedText& placed)
{
    return placed.left + placed.font->plainWidth(placed.text);
}

} // namespace

TEST(ReportLayout, breaksTablesBetweenRowsAndRepeatsTheTitles)
{
    // A4 less the margins is 15138 twips; titles and rows are 285 each, so 52 rows stand below the titles.
    const std::pair<int, std::size_t> cases[] = {{0, 1}, {1, 1}, {52, 1}, {53, 2}, {104, 2}, {105, 3}};
    for (const auto& [rows, pages] : cases) {
        const Laid laid(tableOf("<2000", numbers(rows)));
        ASSERT_EQ(laid.pages.size(), pages) << rows;
        QStringList seen;
        for (std::size_t page = 0; page < pages; ++page) {
            EXPECT_EQ(laid.texts(page).front(), "Τίτλος");
            seen += laid.texts(page).sliced(1);
        }
        EXPECT_EQ(seen, numbers(rows));
    }
}

TEST(ReportLayout, keepsTitlesWithTheirFirstRows)
{
    const std::pair<int, std::size_t> cases[] = {{50, 0}, {51, 1}, {53, 1}};
    for (const auto& [paragraphs, titlesOnPage] : cases) {
        ReportDocument document;
        document.SetFooter(QString());
        document.Paragraph(QString("γραμμή\r").repeated(paragraphs));
        const bool isBold = paragraphs == 50;
        document.SetFont({.bold = isBold});
        document.AddTable("2000", QString("Τίτλος"), QString("1"));
        document.AddTableRow("2000", QString(), QString("2"));
        const Laid laid(document);
        EXPECT_EQ(laid.allTexts().count("Τίτλος"), 1) << paragraphs;
        for (const PlacedText& placed : laid.pages[titlesOnPage].texts())
            EXPECT_TRUE(placed.text != u"Τίτλος" || placed.font->font().bold() == isBold) << "in the font that was set";
        EXPECT_TRUE(laid.texts(titlesOnPage).contains("Τίτλος")) << paragraphs;
    }
}

TEST(ReportLayout, wrapsTextInItsColumnAndKeepsTheRowTogether)
{
    QString description = QString("Πληρωμή προμηθευτή με αντικαταβολή και έξοδα ").repeated(11);
    description += "τέλος";
    QStringList rows = numbers(49);
    rows.append("|" + description + "|9");
    const Laid laid(tableOf("1000|<4000|>1500", rows));

    ASSERT_EQ(laid.pages.size(), 2U) << "two more rows would fit, but not all lines of this one";
    QStringList lines;
    for (const PlacedText& placed : laid.pages[1].texts()) {
        if (placed.whole != description)
            continue;
        lines.append(placed.text.toString());
        EXPECT_GE(placed.left, 350 + 1000 + 60);
        EXPECT_LE(rightOf(placed), 350 + 1000 + 4000 - 60);
    }
    EXPECT_GT(lines.size(), 5);
    EXPECT_EQ(lines.join(u' '), description);
}

TEST(ReportLayout, comesToAnEndWhateverTheDocument)
{
    const QString word = QString("α").repeated(30'000);
    const struct {
        const char* name;
        QString format;
        QString row;
        double size;
    } cases[] = {
        {"a row taller than a page", "<2000", word, 10},
        {"a column too narrow for a letter", ">10", word.left(300), 10},
        {"columns without width", "|x|0|-9", "α|β|γ|δ", 10},
        {"no columns", QString(), "α", 10},
        {"more cells than columns", "2000", "α|β", 10},
        {"letters taller than a page", "<2000", "αβγ", 1e9},
        {"a size that is no number", "<2000", "αβγ", std::nan("")},
    };
    for (const auto& [name, format, row, size] : cases) {
        ReportDocument document;
        document.SetFooter(QString());
        document.SetFont({.size = size});
        document.SetMargins({.left = 20'000, .top = -5, .right = -20'000, .bottom = 15'000});
        document.AddTable(format, QString("Τίτλος"), row);
        document.Paragraph(u"ω");
        const Laid laid(document);
        EXPECT_LT(laid.pages.size(), 500U) << name;
        EXPECT_EQ(laid.allTexts().count(u'ω'), 1) << name;
        if (row == word) {
            EXPECT_EQ(laid.allTexts().count(u'α'), word.size()) << name;
        }
    }
}

TEST(ReportLayout, breaksLinesAtBlanksAndCarriageReturns)
{
    const FontShelf fonts;
    const GlyphFont& font = fonts.get({"courier new greek", 10, false});
    const float width = font.plainWidth(u"123456");
    const std::pair<QStringView, QStringView> cases[] = {{u"", u""}, {u"\r", u""}, {u"\r\rα", u"//α"},
        {u"α\r\nβ\rγ\r", u"α/β/γ"}, {u"  12 ", u"  12 "}, {u"12 45 78", u"12 45/78"}, {u"123456  89", u"123456/89"},
        {u"123456   ", u"123456"}, {u"1234567 9", u"123456/7 9"}, {u"  1234567", u"  1234/567"},
        {u"12\u00a0456 8", u"12\u00a0456/8"},
        {u"e\u0301e\u0301 \u05d0\u05d1 123", u"e\u0301e\u0301 \u05d0\u05d1 /123"}};
    for (const auto& [text, expected] : cases) {
        QStringList lines;
        for (const TextLine& line : breakIntoLines(font, text, width))
            lines.append(text.sliced(line.start, line.length).toString());
        EXPECT_EQ(lines.join(u'/').toStdString(), expected.toString().toStdString());
    }
}

TEST(ReportLayout, alignsNumbersAndNeverBreaksThem)
{
    const QString longest = "-922.337.203.685.477,58";
    ReportDocument document = tableOf("^800|>1250|1500", {"1|1,11", "2|98.765,43", "3|-123.456.789,00"});
    document.SetFont({.size = 11, .bold = true});
    document.AddTableRow("^800|>1250|1500", QString(), QString("1000000|%1|%1").arg(longest));
    const Laid laid(document);
    for (const PlacedText& placed : laid.pages[0].texts()) {
        if (placed.left > 350 + 800 + 1250)
            EXPECT_LE(rightOf(placed), 350 + 800 + 1250 + 1500 - 60);
        else if (placed.text.contains(u','))
            EXPECT_NEAR(rightOf(placed), 350 + 800 + 1250 - 60, 1) << placed.text.toString().toStdString();
        else
            EXPECT_NEAR((placed.left + rightOf(placed)) / 2, 350 + 400, 1);
    }
    EXPECT_EQ(laid.allTexts(), QString("Τίτλος 1 1,11 2 98.765,43 3 -123.456.789,00 1000000 %1 %1").arg(longest));
}

TEST(ReportLayout, drawsBordersAndShadesRowByRow)
{
    const std::pair<int, const char*> cases[] = {
        {0, ""}, {1, "285"}, {2, "0"}, {3, "0 285"}, {9, "quiet 285"}, {7, ""}};
    for (const auto& [style, expected] : cases) {
        ReportDocument document;
        document.SetTableBorder(style);
        document.AddTableRow("2000", QString(), QString(), 0, 255);
        document.SetTableBorder(0);
        document.AddTableRow("2000", QString(), QString());
        const Laid laid(document);
        std::string rules;
        for (const PlacedRule& rule : laid.pages[0].rules()) {
            rules += rules.empty() ? "" : " ";
            rules += rule.look == PlacedRule::Look::Quiet ? "quiet " : "";
            rules += std::to_string(std::lround(rule.y - 850));
        }
        EXPECT_EQ(rules, expected) << style;
        ASSERT_EQ(laid.pages[0].shades().size(), 1U);
        EXPECT_NEAR(laid.pages[0].shades()[0].area.width(), 2000, 1);
    }
}

TEST(ReportLayout, scalesATableThatIsWiderThanTheText)
{
    ReportDocument document;
    document.SetOrientation(ReportOrientation::Landscape);
    document.SetMargins({.left = 450, .right = 850});
    document.AddTable("<3500|>1800|<3500|>1800|<3500|>1800", QString(), QString("|||||0"));
    const Laid laid(document);
    EXPECT_NEAR(rightOf(laid.pages[0].texts().front()), 16838 - 850 - 60, 1);
}

TEST(ReportLayout, numbersThePagesAndSplitsTheHeader)
{
    ReportDocument document = tableOf("<2000", numbers(60));
    document.SetHeader("αριστερά|μέση|δεξιά");
    document.SetFooter("Σελίδα %d");
    const Laid laid(document);
    const std::vector<PlacedText>& texts = laid.pages[1].texts();
    EXPECT_NEAR(texts[0].left, 350, 1);
    EXPECT_NEAR(texts[1].left + rightOf(texts[1]), 350 + 11906 - 450, 1);
    EXPECT_NEAR(rightOf(texts[2]), 11906 - 450, 1);
    EXPECT_LT(texts[2].baseline, 850);
    EXPECT_EQ(texts.back().text.toString(), "Σελίδα 2");
    EXPECT_GT(texts.back().baseline, 16838 - 850);
}

} // namespace lorvan
