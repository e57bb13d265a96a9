#include "controls/command_button.h"
#include "controls/desktop_font.h"
#include "controls/label3d.h"
#include "controls/shown_form.h"
#include "controls/state_plate.h"
#include "controls/tab_band.h"
#include "controls/theme.h"
#include "controls/totals_bar.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

const std::pair<const char*, qreal> fonts[] = {{"Noto Sans", 10}, {"DejaVu Sans", 10}, {"DejaVu Sans", 14}};

void expectWhole(const QLabel& label)
{
    const QSize least = label.sizeHint();
    EXPECT_GE(label.width(), least.width()) << label.text().toStdString();
    EXPECT_GE(label.height(), least.height()) << label.text().toStdString();
}

} // namespace

TEST(CommandButton, holdsItsCaptionAtAnyFontAndKeepsItsSizeInEveryLook)
{
    for (const auto& [family, points] : fonts) {
        const DesktopFont font(QString::fromLatin1(family), points);
        ShownForm form;
        auto* const button =
            form.add(new CommandButton(QStringLiteral("closecash"), QStringLiteral("Κλείσιμο ταμείου")));
        ASSERT_TRUE(form.show());
        QSet<int> widths;
        for (const auto look : {CommandButton::Look::Outlined, CommandButton::Look::Solid, CommandButton::Look::Quiet,
                 CommandButton::Look::Danger}) {
            button->setLook(look);
            button->resize(button->sizeHint());
            expectWhole(*button->captionLabel());
            EXPECT_TRUE(button->rect().contains(button->captionLabel()->geometry())) << family;
            widths += button->width();
        }
        EXPECT_EQ(widths.size(), 1);
    }
}

TEST(CommandButton, followsItsLabel)
{
    ShownForm form;
    auto* const button = form.add(new CommandButton(QStringLiteral("print"), QStringLiteral("α")));
    ASSERT_TRUE(form.show());
    button->captionLabel()->setText(QStringLiteral("Αποθήκευση και συνέχεια "));
    QCoreApplication::processEvents();
    EXPECT_EQ(button->accessibleName(), QStringLiteral("Αποθήκευση και συνέχεια"));
    EXPECT_GT(button->sizeHint().width(), 150);
    button->captionLabel()->hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(button->sizeHint().width(), 44);
}

TEST(CommandButton, enterPressesItOnceWhileItIsHeldDown)
{
    ShownForm form;
    auto* const button = form.add(new CommandButton(QStringLiteral("print"), QStringLiteral("α")));
    ASSERT_TRUE(form.show());
    QSignalSpy clicks(button, &CommandButton::clicked);
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(button, &repeated);
    EXPECT_EQ(clicks.count(), 2);
    QTest::mouseClick(button, Qt::LeftButton, {}, button->captionLabel()->geometry().center());
    EXPECT_EQ(clicks.count(), 3);
}

TEST(TotalsBar, figuresStepDownAndAreNeverCut)
{
    const QString figures[] = {QStringLiteral("0"), QStringLiteral("5.626,22"), QStringLiteral("999.999.999.999,99")};
    for (const auto& [family, points] : fonts) {
        const DesktopFont font(QString::fromLatin1(family), points);
        for (const QString& figure : figures) {
            TotalsBar bar;
            bar.setFigures(figure, figure, u'-' + figure);
            bar.show();
            for (const int width : {1366, 788, 720}) {
                bar.resize(std::max(width, bar.minimumSizeHint().width()), bar.sizeHint().height());
                int right = 0;
                for (int i = 1; i <= 6; ++i) {
                    const auto* const label = bar.findChild<QLabel*>(QStringLiteral("Bar1(%1)").arg(i));
                    ASSERT_TRUE(label);
                    expectWhole(*label);
                    if (i % 2 == 1) {
                        EXPECT_GE(label->x(), right) << figure.toStdString() << " at " << width;
                    }
                    right = label->geometry().right();
                }
                EXPECT_LE(right, bar.width());
            }
        }
    }
}

TEST(TotalsBar, longFiguresAreSmallerThanShortOnes)
{
    TotalsBar bar;
    bar.resize(720, 46);
    const auto size = [&bar](const QString& figure) {
        bar.setFigures(figure, figure, figure);
        return bar.findChild<QLabel*>(QStringLiteral("Bar1(6)"))->font().pointSizeF();
    };
    const qreal full = size(QStringLiteral("1,00"));
    EXPECT_LT(size(QStringLiteral("99.999.999.999,99")), full);
    EXPECT_EQ(size(QStringLiteral("1,00")), full);
}

TEST(StatePlate, keepsItsWidthInBothStates)
{
    StatePlate plate(QStringLiteral("Ταμείο ανοικτό"), QStringLiteral("Ταμείο κλειστό"));
    const QSize open = plate.sizeHint();
    plate.resize(open);
    EXPECT_EQ(plate.label()->foreColor2(), QColor(0, 255, 0));
    plate.showClosed();
    EXPECT_EQ(plate.sizeHint(), open);
    EXPECT_EQ(plate.label()->foreColor2(), QColor(255, 0, 0));
    EXPECT_TRUE(plate.rect().contains(plate.label()->geometry()));
}

TEST(TabBand, elidesALongHeadingAndKeepsItsTabsInPlace)
{
    TabBand band;
    for (const char* const caption : {"Ημερήσια κίνηση ", "Κωδικοί κινήσεων &", "Εκτυπώσεις ", "Εξοδος "})
        band.addTab(QStringLiteral("daybook"), QString::fromUtf8(caption), {});
    band.setVersion(QStringLiteral("Έκδοση  1.0.0"));
    band.resize(720, band.sizeHint().height());
    band.show();
    auto* const heading = band.findChild<Label3D*>(QStringLiteral("Label3D1(1)"));
    band.setHeading(QStringLiteral("Κεντρικό"));
    EXPECT_TRUE(heading->toolTip().isEmpty());
    const QString longHeading = QStringLiteral("Κεντρικό κατάστημα Θεσσαλονίκης και περιχώρων");
    band.setHeading(longHeading);
    EXPECT_EQ(heading->caption(), longHeading);
    EXPECT_EQ(heading->toolTip(), longHeading);
    EXPECT_GT(heading->x(), band.tabs()->geometry().right());
    EXPECT_LT(heading->geometry().right(), band.width());

    const QRect third = band.tabs()->tabRect(2);
    band.tabs()->setCurrentIndex(1);
    EXPECT_EQ(band.tabs()->tabRect(2), third);
}

} // namespace lorvan::test
