#include "look/colours.h"
#include "look/theme.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

QColor inPalette(QPalette::ColorRole role)
{
    return QApplication::palette().color(role);
}

} // namespace

TEST(Theme, followsTheDesktopIntoTheDarkAndBack)
{
    const Theme& theme = Theme::instance();
    const QColor lightPage = inPalette(QPalette::Window);
    ASSERT_FALSE(theme.isDark());
    QPalette dark(QColor(0x30, 0x30, 0x30), QColor(0x20, 0x21, 0x22));
    dark.setColor(QPalette::Base, QColor(0x10, 0x11, 0x12));
    QApplication::setPalette(dark);
    EXPECT_TRUE(theme.isDark());
    EXPECT_EQ(theme.colour(ColourRole::Page), QColor(0x20, 0x21, 0x22));
    EXPECT_EQ(inPalette(QPalette::Base), QColor(0x10, 0x11, 0x12));
    EXPECT_EQ(theme.colour(ColourRole::Accent), darkColour(ColourRole::Accent));
    QApplication::setPalette(QPalette());
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(inPalette(QPalette::Window), lightPage);
}

TEST(Theme, textIsReadableOnItsGround)
{
    using enum ColourRole;
    const std::pair<ColourRole, ColourRole> pairs[] = {{Text, Band}, {Muted, Band}, {PageText, Page}, {PageMuted, Page},
        {Text, Base}, {Muted, Alternate}, {Faint, Alternate}, {Muted, Tint}, {Income, Tint}, {Expense, Tint},
        {Text, BalanceRow}, {OnAccent, Accent}, {OnAccent, SolidHover}, {HighlightText, Highlight}, {Expense, Button},
        {Income, Band}, {Expense, Band}};
    for (const auto& [text, ground] : pairs) {
        EXPECT_GE(contrast(lightColour(text), lightColour(ground)), 4.5) << int(text) << " on " << int(ground);
        EXPECT_GE(contrast(darkColour(text), darkColour(ground)), 4.5) << int(text) << " on " << int(ground);
    }
}

TEST(Theme, keepsTheHighContrastOfADesktop)
{
    using enum ColourRole;
    const Theme& theme = Theme::instance();
    for (const auto& [ground, text] : {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black)}) {
        QPalette desktop{QColor(ground)};
        desktop.setColor(QPalette::Window, ground);
        desktop.setColor(QPalette::WindowText, text);
        desktop.setColor(QPalette::Text, text);
        QApplication::setPalette(desktop);
        for (const ColourRole on : {Page, Band, Base, Alternate, Button, BalanceRow}) {
            for (const ColourRole drawn : {Text, Muted, Edge, Line})
                EXPECT_GE(contrast(theme.colour(drawn), theme.colour(on)), 15) << int(drawn) << " on " << int(on);
            for (const ColourRole written : {Faint, Income, Expense, Warning, Accent})
                EXPECT_GE(contrast(theme.colour(written), theme.colour(on)), 4.5) << int(written) << " on " << int(on);
        }
    }
    QApplication::setPalette(QPalette());
}

TEST(Theme, aColourOfItsOwnReachesEveryGroundOnAnyDesktopAndNoBox)
{
    Theme& theme = Theme::instance();
    for (const QColor& desktop : {QColor(0xE0, 0xE0, 0xE0), QColor(0x20, 0x21, 0x22)}) {
        QApplication::setPalette(QPalette(desktop.lighter(), desktop));
        const QColor page = inPalette(QPalette::Window);
        for (const QRgb own : {0x204060U, 0xFFFF80U, 0x000000U, 0xC0C0C0U}) {
            theme.setPageColour(QColor(own));
            EXPECT_EQ(inPalette(QPalette::Window), QColor(own));
            EXPECT_EQ(theme.colour(ColourRole::Band), QColor(own));
            for (const ColourRole text : {ColourRole::PageText, ColourRole::PageMuted, ColourRole::PageWarning,
                     ColourRole::PageIncome, ColourRole::PageExpense})
                EXPECT_GE(contrast(theme.colour(text), QColor(own)), 4.5) << int(text) << " on " << own;
            EXPECT_EQ(inPalette(QPalette::Base), QColor(Qt::white));
            EXPECT_EQ(inPalette(QPalette::Text), lightColour(ColourRole::Text));
            QMessageBox box(QMessageBox::Question, {}, "α");
            box.show();
            EXPECT_EQ(box.palette().color(QPalette::Window), page);
            const auto* const text = box.findChild<QLabel*>("qt_msgbox_label");
            EXPECT_GE(contrast(text->palette().color(QPalette::WindowText), page), 4.5);
        }
        theme.setPageColour(std::nullopt);
        EXPECT_EQ(inPalette(QPalette::Window), page);
    }
    QApplication::setPalette(QPalette());
}

} // namespace lorvan::test
