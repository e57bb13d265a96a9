#include "controls/colours.h"
#include "controls/icons.h"
#include "controls/theme.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

/// A dark desktop for the time of a test.
class DarkDesktop {
public:
    DarkDesktop()
    {
        QPalette dark(QColor(0x30, 0x30, 0x30), QColor(0x20, 0x21, 0x22));
        dark.setColor(QPalette::Base, QColor(0x10, 0x11, 0x12));
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(QPalette()); }
    Q_DISABLE_COPY_MOVE(DarkDesktop)
};

bool hasLatinWord(QString text)
{
    static const QRegularExpression latin(QStringLiteral("[A-Za-z]{2,}"));
    return text.section(u'\t', 0, 0).contains(latin);
}

} // namespace

TEST(Theme, followsTheDesktopIntoTheDarkAndBack)
{
    Theme& theme = Theme::instance();
    ASSERT_FALSE(theme.isDark());
    const QColor lightPage = theme.colour(ColourRole::Page);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), lightPage);
    {
        const DarkDesktop desktop;
        EXPECT_TRUE(theme.isDark());
        EXPECT_EQ(theme.colour(ColourRole::Page), QColor(0x20, 0x21, 0x22));
        EXPECT_EQ(theme.colour(ColourRole::Base), QColor(0x10, 0x11, 0x12));
        EXPECT_EQ(theme.colour(ColourRole::Accent), darkColour(ColourRole::Accent));
        EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor(0x10, 0x11, 0x12));
    }
    EXPECT_FALSE(theme.isDark());
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), lightPage);
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

TEST(Theme, theBooksOwnColourChangesPagesAndTheTextOnThemAlone)
{
    Theme& theme = Theme::instance();
    const QColor base = theme.colour(ColourRole::Base);
    const QColor fieldText = theme.colour(ColourRole::Text);
    for (const QRgb own : {0x204060U, 0xFFFF80U, 0x000000U, 0xC0C0C0U}) {
        theme.setPageColour(QColor(own));
        EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(own));
        EXPECT_GE(contrast(QApplication::palette().color(QPalette::WindowText), QColor(own)), 4.5) << own;
        EXPECT_EQ(theme.colour(ColourRole::Base), base);
        EXPECT_EQ(QApplication::palette().color(QPalette::Text), fieldText);
    }
    theme.setPageColour(std::nullopt);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), lightColour(ColourRole::Page));
}

TEST(Theme, figuresHaveOneWidth)
{
    const QFont before = QApplication::font();
    for (const char* const family : {"Noto Sans", "Liberation Serif", "DejaVu Sans"}) {
        QApplication::setFont(QFont(QString::fromLatin1(family), 10));
        const QFontMetricsF metrics(Theme::instance().figureFont(1.45, QFont::DemiBold));
        for (char16_t digit = u'1'; digit <= u'9'; ++digit)
            EXPECT_EQ(metrics.horizontalAdvance(QChar(digit)), metrics.horizontalAdvance(u'0')) << family;
    }
    QApplication::setFont(before);
}

TEST(Theme, iconsAreDrawnInTheColourOfTheirRoleAtAnyResolution)
{
    const QIcon icon = themedIcon(QStringLiteral("insert"), ColourRole::Accent);
    for (const qreal ratio : {1.0, 1.25, 2.0}) {
        const QPixmap pixmap = icon.pixmap(QSize(18, 18), ratio);
        EXPECT_EQ(pixmap.width(), qRound(18 * ratio));
        const QColor middle = pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
        EXPECT_LT(contrast(middle, Theme::instance().colour(ColourRole::Accent)), 1.05);
    }
    EXPECT_TRUE(themedIcon(QStringLiteral("no such icon"), ColourRole::Text).isNull());
}

TEST(GreekTexts, buttonsAndMenusSpeakGreek)
{
    QMessageBox box;
    box.setStandardButtons(QMessageBox::StandardButtons(QMessageBox::Ok | QMessageBox::Cancel | QMessageBox::Yes
        | QMessageBox::No | QMessageBox::Save | QMessageBox::Close | QMessageBox::Retry | QMessageBox::Abort));
    EXPECT_EQ(box.button(QMessageBox::Ok)->text(), QStringLiteral("ΟΚ"));
    EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), QStringLiteral("Άκυρο"));
    EXPECT_EQ(box.button(QMessageBox::Yes)->text().remove(u'&'), QStringLiteral("Ναι"));
    EXPECT_EQ(box.button(QMessageBox::No)->text().remove(u'&'), QStringLiteral("Όχι"));
    const auto buttons = box.buttons();
    for (const QAbstractButton* const button : buttons)
        EXPECT_FALSE(hasLatinWord(button->text().remove(u'&'))) << button->text().toStdString();

    QLineEdit field;
    const std::unique_ptr<QMenu> menu(field.createStandardContextMenu());
    const auto actions = menu->actions();
    EXPECT_GE(actions.size(), 7);
    for (const QAction* const action : actions)
        EXPECT_FALSE(hasLatinWord(action->text().remove(u'&'))) << action->text().toStdString();
}

} // namespace lorvan::test
