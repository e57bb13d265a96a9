#include "windows/every_window.h"
#include "windows/main_window_test.h"
#include "windows/shown_form.h"
#include "windows/whole_window.h"

#include "look/opening_placement.h"

#include <QAccessible>

namespace lorvan::test {
namespace {

bool isReachedByTab(const QAccessibleInterface& control)
{
    const auto* const widget = qobject_cast<const QWidget*>(control.object());
    const bool isShut = widget && !widget->isVisible() && widget->window()->windowType() == Qt::Popup;
    return widget && !isShut && (widget->focusPolicy() & Qt::TabFocus) != 0
        && control.role() != QAccessible::StaticText;
}

/// Controls below this one that the Tab key leads to and that tell an assistive tool no name, or not what they are.
void addNameless(QAccessibleInterface& control, QStringList& found)
{
    const bool isPlain = control.role() == QAccessible::NoRole || control.role() == QAccessible::Client;
    if (isReachedByTab(control) && (isPlain || control.text(QAccessible::Name).trimmed().isEmpty()))
        found += control.object()->objectName() + u' ' + control.object()->metaObject()->className();
    for (int i = 0; i < control.childCount(); ++i) {
        QAccessibleInterface* const child = control.child(i);
        if (child && (!child->object() || child->object()->isWidgetType()))
            addNameless(*child, found);
    }
}

void expectNamed(QWidget& window)
{
    QStringList found;
    addNameless(*QAccessible::queryAccessibleInterface(&window), found);
    EXPECT_EQ(found.join(u'\n'), QString()) << window.objectName();
}

class EveryWindow : public MainWindowTest {
protected:
    /// Each window as it opens; the main one with each of its tabs.
    void visit(const WindowVisit& look)
    {
        const auto lookShown = [&look](QWidget& window) {
            showActive(window);
            look(window);
        };
        start(allRights);
        OpeningPlacement::of(&window()).end(); // this screen is smaller than those on which large type is used
        window().resize(1366, 740);
        for (const Tab tab : {CashTab, CodesTab, PrintingTab}) {
            selectTab(tab);
            look(window());
        }
        visitWindowsBeside(book, lookShown);
        visitWindowsOfTheDoor(book, lookShown);
    }
};

} // namespace

TEST_F(EveryWindow, saysWhatEachOfItsControlsIsAndWhatItIsCalled)
{
    visit(expectNamed);
}

TEST_F(EveryWindow, isWholeWithTypeTwiceAsLarge)
{
    const DesktopFont large(QApplication::font().family(), 2 * QApplication::font().pointSize());
    visit([](QWidget& window) {
        layOutWhole();
        EXPECT_EQ(cutOffIn(window), QString()) << window.objectName();
    });
}

} // namespace lorvan::test
