#include "controls/label3d.h"
#include "support/ink.h"
#include "windows/shown_form.h"

#include <QSignalSpy>

namespace lorvan::test {
namespace {

/// Where anything is drawn on the white label when its two layers have these colours.
QPoint inkOf(Label3D& label, const QColor& back, const QColor& front)
{
    label.setForeColor1(back);
    label.setForeColor2(front);
    return inkIn(label.grab().toImage(), {}, 254).topLeft();
}

} // namespace

TEST(Label3D, thePhaseTellsWhereTheBackLayerShows)
{
    Label3D label;
    label.resize(60, 30);
    label.setCaption("||");
    label.setBackColor(Qt::white);
    const std::pair<int, QPoint> cases[] = {
        {0, {1, 1}}, {1, {-1, 1}}, {2, {1, -1}}, {3, {-1, -1}}, {4, {-1, -1}}, {255, {-1, -1}}};
    for (const auto& [phase, backFromFront] : cases) {
        label.setPhase(phase);
        const QPoint front = inkOf(label, Qt::transparent, Qt::red);
        EXPECT_EQ(inkOf(label, Qt::blue, Qt::transparent) - front, backFromFront) << phase;
    }
}

TEST(Label3D, tellsEachChangeAndComesBackFromItsBag)
{
    const std::map<QString, QVariant> values{{"Alignment", 2}, {"BackColor", QColor(7, 8, 9)}, {"BorderStyle", 1},
        {"Caption", "Ταμείο"}, {"Enabled", false}, {"Font", QFont("Liberation Serif", 17)},
        {"ForeColor1", QColor(1, 2, 3)}, {"ForeColor2", QColor(4, 5, 6)}, {"Phase", 2}};
    Label3D label;
    QSignalSpy changes(&label, &Label3D::propertyChanged);
    for (const auto& [name, value] : values) {
        label.setProperty((name.at(0).toLower() + name.mid(1)).toLatin1().constData(), value);
        EXPECT_EQ(changes.takeLast().at(0), name);
        EXPECT_EQ(label.writeProperties().values().value(name), value) << name;
    }

    Label3D other;
    other.readProperties(label.writeProperties());
    EXPECT_EQ(other.writeProperties().values(), label.writeProperties().values());
    EXPECT_EQ(other.frontOffset(), QPoint(0, 1));
    EXPECT_EQ(other.accessibleName(), "Ταμείο");
}

TEST(Label3D, keepsOnlyWhatDiffersFromTheStoredDefaults)
{
    Label3D stored;
    stored.readProperties(PropertyBag());
    EXPECT_TRUE(stored.writeProperties().values().isEmpty());

    // A label as it is newly placed has the system's colours, which are no defaults.
    const QStringList names = Label3D().writeProperties().values().keys();
    EXPECT_EQ(names, QStringList({"ForeColor1", "ForeColor2"}));
}

TEST(Label3D, passesTheMouseOfItsFrontLayerOn)
{
    Label3D label;
    label.resize(40, 20);
    label.setPhase(3);
    label.show();
    QStringList events;
    QObject::connect(&label, &Label3D::mouseDown, &label, [&](qint16 button, qint16 shift, float x, float y) {
        events += QString("down %1 %2 %3 %4").arg(button).arg(shift).arg(double(x)).arg(double(y));
    });
    QObject::connect(&label, &Label3D::mouseMove, &label, [&](qint16 button, qint16, float x, float y) {
        events += QString("move %1 %2 %3").arg(button).arg(double(x)).arg(double(y));
    });
    QObject::connect(&label, &Label3D::mouseUp, &label, [&] { events += "up"; });
    QObject::connect(&label, &Label3D::click, &label, [&] { events += "click"; });
    QObject::connect(&label, &Label3D::dblClick, &label, [&] { events += "double"; });

    QTest::mouseClick(&label, Qt::RightButton, Qt::ControlModifier | Qt::ShiftModifier, {11, 6});
    EXPECT_EQ(events.join(u','), "down 2 3 10 5,up,click");
    events.clear();
    QTest::mouseClick(&label, Qt::LeftButton, {}, {11, 6});
    QTest::mouseDClick(&label, Qt::LeftButton, {}, {11, 6});
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {11, 6});
    EXPECT_EQ(events.join(u','), "down 1 0 10 5,up,click,double,up");
    events.clear();
    const auto move = [&label](QPoint to, Qt::MouseButtons held) {
        QMouseEvent event(QEvent::MouseMove, to, label.mapToGlobal(to), Qt::NoButton, held, {});
        QCoreApplication::sendEvent(&label, &event);
    };
    const QPoint beside(0, 6); // the front layer
    QTest::mousePress(&label, Qt::LeftButton, {}, beside);
    move({11, 6}, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, {11, 6});
    move(beside, {});
    EXPECT_EQ(events.join(u','), QString());
    move({11, 6}, {});
    QTest::mousePress(&label, Qt::LeftButton, {}, {11, 6});
    move(beside, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, beside);
    EXPECT_EQ(events.join(u','), "move 0 10 5,down 1 0 10 5,move 1 -1 5,up");
}

} // namespace lorvan::test
