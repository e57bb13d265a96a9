#include "controls/label3d.h"
#include "controls/shown_form.h"

#include <QImage>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

class CountingWidget : public QWidget {
public:
    int paintings = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paintings; }
};

/// Where a colour is drawn: the bounding rectangle of the pixels of exactly that colour.
QRect extentOf(const QColor& colour, Label3D& label)
{
    const QImage image = label.grab().toImage();
    QRect extent;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

} // namespace

TEST(Label3D, thePhaseTellsWhereTheBackLayerShows)
{
    struct {
        int phase;
        QPoint back;
        QPoint front;
    } const cases[] = {{0, {1, 1}, {0, 0}}, {1, {0, 1}, {1, 0}}, {2, {1, 0}, {0, 1}}, {3, {0, 0}, {1, 1}},
        {4, {0, 0}, {1, 1}}, {255, {0, 0}, {1, 1}}};
    Label3D label;
    for (const auto& [phase, back, front] : cases) {
        label.setPhase(phase);
        EXPECT_EQ(label.phase(), phase);
        EXPECT_EQ(label.backOffset(), back) << phase;
        EXPECT_EQ(label.frontOffset(), front) << phase;
    }
}

TEST(Label3D, bothLayersAndTheBorderAreDrawnWhereTheyStand)
{
    Label3D label;
    label.resize(60, 30);
    label.setCaption(QString());
    label.setBackColor(Qt::white);
    label.setForeColor2(Qt::red);
    label.setBorderStyle(Label3D::Border::Single);
    EXPECT_EQ(extentOf(Qt::red, label), QRect(0, 0, 60, 30));
    label.setPhase(3);
    EXPECT_EQ(extentOf(Qt::red, label).topLeft(), QPoint(1, 1));

    label.setBorderStyle(Label3D::Border::None);
    label.setForeColor1(Qt::blue);
    label.setPhase(0);
    label.setCaption(QStringLiteral("||"));
    const QImage image = label.grab().toImage();
    int reds = 0;
    int blues = 0;
    for (int x = 0; x < image.width(); ++x) {
        reds += image.pixelColor(x, 12).red() > image.pixelColor(x, 12).blue() + 60 ? 1 : 0;
        blues += image.pixelColor(x, 12).blue() > image.pixelColor(x, 12).red() + 60 ? 1 : 0;
    }
    EXPECT_GT(reds, 0);
    EXPECT_GT(blues, 0);
}

TEST(Label3D, isNeverSmallerThanAHundredTwips)
{
    Label3D label;
    label.resize(3, 1);
    EXPECT_EQ(label.size(), QSize(7, 7));
    label.resize(3, 40);
    EXPECT_EQ(label.size(), QSize(7, 40));
}

TEST(Label3D, keepsOnlyWhatDiffersFromTheStoredDefaults)
{
    Label3D stored;
    stored.readProperties(PropertyBag());
    EXPECT_EQ(stored.foreColor1(), QColor(Qt::black));
    EXPECT_EQ(stored.foreColor2(), QColor(Qt::white));
    EXPECT_EQ(stored.caption(), QStringLiteral("Label3D"));
    EXPECT_TRUE(stored.writeProperties().values().isEmpty());

    // A label as it is newly placed has the system's colours, which are no defaults.
    const QStringList names = Label3D().writeProperties().values().keys();
    EXPECT_EQ(names, QStringList({QStringLiteral("ForeColor1"), QStringLiteral("ForeColor2")}));
}

TEST(Label3D, comesBackFromItsBagAsItWas)
{
    Label3D label;
    label.setEnabled(false);
    label.setFont(QFont(QStringLiteral("Liberation Serif"), 17));
    label.setForeColor1(QColor(1, 2, 3));
    label.setForeColor2(QColor(4, 5, 6));
    label.setCaption(QStringLiteral("Ταμείο"));
    label.setAlignment(Label3D::TextAlignment::Centre);
    label.setPhase(2);
    label.setBackColor(QColor(7, 8, 9));
    label.setBorderStyle(Label3D::Border::Single);
    const PropertyBag bag = label.writeProperties();
    EXPECT_EQ(bag.values().size(), 9);

    Label3D other;
    other.readProperties(bag);
    EXPECT_EQ(other.writeProperties().values(), bag.values());
    EXPECT_EQ(other.frontOffset(), QPoint(0, 1));
    EXPECT_FALSE(other.isEnabled());
    EXPECT_EQ(other.accessibleName(), QStringLiteral("Ταμείο"));
}

TEST(Label3D, tellsWhichPropertyWasSet)
{
    Label3D label;
    QSignalSpy changes(&label, &Label3D::propertyChanged);
    label.setProperty("caption", QStringLiteral("α"));
    label.setProperty("phase", 1);
    label.setProperty("foreColor1", QColor(Qt::red));
    label.setProperty("foreColor2", QColor(Qt::red));
    label.setProperty("backColor", QColor(Qt::red));
    label.setProperty("alignment", 2);
    label.setProperty("borderStyle", 1);
    label.setProperty("enabled", false);
    label.setProperty("font", QFont(QStringLiteral("Liberation Serif"), 17));
    QStringList names;
    for (const QList<QVariant>& change : changes)
        names += change.at(0).toString();
    EXPECT_EQ(names.join(u' '),
        QStringLiteral("Caption Phase ForeColor1 ForeColor2 BackColor Alignment BorderStyle Enabled Font"));
    EXPECT_EQ(label.alignment(), Label3D::TextAlignment::Centre);
}

TEST(Label3D, passesTheMouseOfItsFrontLayerOn)
{
    Label3D label;
    label.resize(40, 20);
    label.setPhase(3);
    label.show();
    QStringList events;
    QObject::connect(&label, &Label3D::mouseDown, &label, [&](qint16 button, qint16 shift, float x, float y) {
        events += QStringLiteral("down %1 %2 %3 %4").arg(button).arg(shift).arg(double(x)).arg(double(y));
    });
    QObject::connect(&label, &Label3D::mouseUp, &label, [&] { events += QStringLiteral("up"); });
    QObject::connect(&label, &Label3D::click, &label, [&] { events += QStringLiteral("click"); });
    QObject::connect(&label, &Label3D::dblClick, &label, [&] { events += QStringLiteral("double"); });

    QTest::mouseClick(&label, Qt::RightButton, Qt::ControlModifier | Qt::ShiftModifier, {11, 6});
    EXPECT_EQ(events.join(u','), QStringLiteral("down 2 3 10 5,up,click"));
    events.clear();
    QTest::mouseClick(&label, Qt::LeftButton, {}, {11, 6});
    QTest::mouseDClick(&label, Qt::LeftButton, {}, {11, 6});
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {11, 6});
    EXPECT_EQ(events.join(u','), QStringLiteral("down 1 0 10 5,up,click,double,up"));
    events.clear();
    QTest::mousePress(&label, Qt::LeftButton, {}, {0, 6}); // beside the front layer
    EXPECT_FALSE(events.join(u',').contains(QStringLiteral("down")));
}

TEST(Label3D, aChangeRepaintsTheLabelAlone)
{
    CountingWidget host;
    host.resize(200, 100);
    Label3D label(&host);
    label.setBackColor(Qt::white);
    label.setGeometry(10, 10, 100, 30);
    CountingWidget sibling;
    sibling.setParent(&host);
    sibling.setGeometry(10, 50, 100, 30);
    host.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
    QTest::qWait(20);
    const int before = sibling.paintings;
    label.setForeColor2(Qt::green);
    label.setPhase(2);
    QTest::qWait(20);
    EXPECT_EQ(sibling.paintings, before);
}

} // namespace lorvan::test
