#include "controls/command_button.h"
#include "controls/label3d.h"
#include "look/theme.h"
#include "main/tab_band.h"
#include "main/totals_bar.h"
#include "windows/shown_form.h"

#include <QLabel>
#include <QSignalSpy>

namespace lorvan::test {

TEST(CommandButton, enterPressesItOnceWhileItIsHeldDown)
{
    ShownForm form;
    auto* const button = form.add(new CommandButton("print", "α"));
    form.show();
    QSignalSpy clicks(button, &CommandButton::clicked);
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClick(button, Qt::Key_Enter, Qt::KeypadModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(button, &repeated);
    EXPECT_EQ(clicks.count(), 2);
    QTest::mouseClick(button, Qt::LeftButton, {}, button->captionLabel()->geometry().center());
    EXPECT_EQ(clicks.count(), 3);
}

/// Where the lines between the pairs are painted.
std::vector<int> separatorsOf(TotalsBar& bar)
{
    const QImage image = bar.grab().toImage();
    const QRgb line = Theme::instance().colour(ColourRole::Edge).rgb();
    std::vector<int> places;
    for (int x = 0; x < image.width(); ++x)
        if (image.pixel(x, 13) == line && image.pixel(x, image.height() - 14) == line)
            places.push_back(x);
    return places;
}

TEST(TotalsBar, figuresStepDownAndAreNeverCutBetweenStandingSeparators)
{
    std::vector<int> separators;
    const DesktopFont font("DejaVu Sans", 14);
    for (const QString figure : {"5.626,22", "922.337.203.685.477,58"}) {
        TotalsBar bar;
        bar.setFigures(figure, figure, u'-' + figure);
        bar.show();
        for (const int width : {1366, 720}) {
            bar.resize(std::max(width, bar.minimumSizeHint().width()), bar.sizeHint().height());
            int right = 0;
            for (int i = 1; i <= 6; ++i) {
                const auto* const label = bar.findChild<QLabel*>(QString("Bar1(%1)").arg(i));
                EXPECT_GE(label->width(), label->sizeHint().width()) << i;
                const bool isCaption = i % 2 == 1; // which begins behind the figure before it
                EXPECT_GE(label->x(), isCaption ? right : 0) << figure << " at " << width;
                right = label->geometry().right();
            }
            EXPECT_LE(right, bar.width());
            if (width == 1366 && separators.empty())
                separators = separatorsOf(bar);
            EXPECT_TRUE(width != 1366 || separatorsOf(bar) == separators) << figure;
            EXPECT_EQ(separators.size(), 2U);
        }
    }
}

TEST(TabBand, elidesALongHeadingBesideItsTabs)
{
    TabBand band;
    for (const char* const caption : {"Ημερήσια κίνηση ", "Κωδικοί κινήσεων ", "Εκτυπώσεις ", "Εξοδος "})
        band.addTab("daybook", caption, {});
    band.resize(720, band.sizeHint().height());
    band.show();
    const auto* const heading = band.findChild<Label3D*>("Label3D1(1)");
    for (const auto& [text, isCut] :
        {std::pair("Κεντρικό", false), std::pair("Κεντρικό κατάστημα Θεσσαλονίκης και περιχώρων", true)}) {
        band.setHeading(text);
        EXPECT_EQ(heading->toolTip(), isCut ? text : QString());
        EXPECT_GT(heading->x(), band.tabs()->geometry().right());
        EXPECT_LT(heading->geometry().right(), band.width());
    }
}

} // namespace lorvan::test
