#include "windows/every_window.h"
#include "windows/main_window_test.h"
#include "windows/program_run.h"

#include "book/version.h"

#include <QAccessible>

namespace lorvan::test {
namespace {

/// What a control shows as its caption; what is typed or listed is none.
QString captionOf(const QWidget& control)
{
    for (const char* const property : {"text", "title", "caption"}) {
        const QVariant value = control.property(property);
        if (value.isValid() && !qobject_cast<const QLineEdit*>(&control))
            return value.toString();
    }
    return {};
}

void addLine(QStringList& lines, const QString& name, const QString& caption, const QString& tip)
{
    if (!caption.isEmpty() || !tip.isEmpty())
        lines += (name.isEmpty() ? "-" : name) + ": " + caption + (tip.isEmpty() ? QString() : " [" + tip + u']');
}

/// Title, captions, headings and tooltips of a window, control by control. Each text of a caption drawn by a label
/// inside a button stands once.
QString captionsIn(const QWidget& window)
{
    QStringList lines{window.objectName() + " = " + window.windowTitle()};
    for (const QWidget* const control : window.findChildren<QWidget*>()) {
        if (control->objectName().startsWith("qt_"))
            continue;
        const auto* const tabs = qobject_cast<const QTabBar*>(control);
        for (int tab = 0; tabs && tab < tabs->count(); ++tab)
            addLine(lines, tabs->objectName(), tabs->tabText(tab), tabs->tabToolTip(tab));
        addLine(lines, control->objectName(), captionOf(*control).replace(programVersion(), "#"), control->toolTip());
    }
    return lines.join(u'\n') + u'\n';
}

class Captions : public ProgramTest { };

} // namespace

TEST_F(Captions, ofEveryWindowAreAsTheyStandInTheTable)
{
    startToSignIn();
    QString found = captionsIn(loginWindow());
    signInAsSofia();
    const QWidget& cashBook = *shownWindow("kentrikh");
    found += captionsIn(cashBook);

    visitWindowsBeside(book, [&found](const QWidget& window) { found += captionsIn(window); });
    EXPECT_EQ(found.toStdString(), readFile(QT_TESTCASE_SOURCEDIR "/windows/main/captions.txt").toStdString());

    for (const char* const label : {"Label3D1(0)", "Label3D1(1)", "Label3D1(3)"}) {
        QWidget* const shown = cashBook.findChild<QWidget*>(label);
        const auto* const spoken = QAccessible::queryAccessibleInterface(shown);
        EXPECT_EQ(spoken->role(), QAccessible::StaticText) << label;
        EXPECT_EQ(spoken->text(QAccessible::Name), shown->property("caption").toString());
    }
    for (const QWidget* const field : cashBook.findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName();
}

} // namespace lorvan::test
