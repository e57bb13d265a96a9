#include "windows/main_window_test.h"
#include "windows/program_run.h"

#include "book/version.h"
#include "cashbook/day_calendar.h"
#include "cashbook/tape_window.h"
#include "codes/omada_kvdikvn.h"
#include "figures/card_window.h"
#include "figures/picture_window.h"
#include "help/help_window.h"
#include "journal/journal_window.h"
#include "main/check_window.h"
#include "main/open_days_list.h"
#include "preview/ektypvsh.h"
#include "preview/printer_choice.h"
#include "preview/progress_window.h"
#include "preview/report_saver.h"
#include "preview/save_dialog.h"
#include "printing/analysh_frm.h"
#include "printing/epilogh_omadvn.h"
#include "printing/option_question.h"
#include "search/search_window.h"
#include "start/fr_ervthsh_update.h"

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

    Connection main = book.openMain();
    const SettingsStore settings(book.path("Lorvan.ini"));
    Printers printers([] { return std::vector<Printer>(); });
    ReportSaver saver;
    found += captionsIn(OmadaKvdikvn(main, byAll(), [](QWidget*) { return true; }));
    found += captionsIn(OpenDaysList({}, nullptr));
    found += captionsIn(CheckWindow(
        book.files(), testKeys(), byAll(), [](QWidget*) { return true; }, nullptr));
    found += captionsIn(FR_ErvthshUpdate(fixedClock()));
    found += captionsIn(AnalyshFRM(main, settings, "1/3/2024"));
    found += captionsIn(Ervthsh());
    found += captionsIn(FormaTajinomhshs());
    found += captionsIn(EpiloghOmadvn({}, settings));
    found += captionsIn(Ektypvsh(printers, saver));
    found += captionsIn(PrinterChoice(printers, nullptr));
    found += captionsIn(ProgressWindow({"Εκτύπωση", "Διαβάζονται οι κινήσεις", "Γραμμές"}, nullptr));
    found += captionsIn(SaveDialog("Αποθήκευση", {{"Έγγραφο PDF (*.pdf)", "pdf"}}, nullptr));
    found += captionsIn(JournalWindow(book.files(), testKeys(), fixedClock(), {}, nullptr));
    found += captionsIn(SearchWindow(book.files(), testKeys(), fixedClock(), {}, nullptr));
    found += captionsIn(PictureWindow(book.files(), testKeys(), fixedClock(), {}, nullptr));
    found += captionsIn(CardWindow(book.files(), testKeys(), nullptr));
    found += captionsIn(HelpWindow([](QWidget*) {}, nullptr));
    found += captionsIn(TapeWindow({}, nullptr));
    const QDate day(2024, 3, 15);
    found += captionsIn(DayCalendar(
        day, day, [](QDate, QDate) { return std::vector<CalendarDay>(); }, nullptr));
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
