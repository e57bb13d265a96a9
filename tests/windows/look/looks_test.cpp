#include "cashbook/cash_book.h"
#include "windows/main_window_test.h"
#include "windows/program_run.h"

#include "look/opening_placement.h"
#include "preview/ektypvsh.h"
#include "preview/printer_choice.h"
#include "preview/report_saver.h"
#include "preview/save_dialog.h"
#include "printing/option_question.h"
#include "start/fr_ervthsh_update.h"
#include "windows/shown_form.h"
#include "windows/whole_window.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QRegularExpression>

namespace lorvan::test {
namespace {

/// Every text that a window shows or tells, with the control that it belongs to.
using Texts = std::vector<std::pair<QString, QString>>;

void addTextsOf(const QMenu& menu, const QString& owner, Texts& texts)
{
    for (const QAction* const action : menu.actions())
        texts.emplace_back(owner + " menu", action->text().section(u'\t', 0, 0));
}

/// Some menus are shown by a call that waits for the answer, so the menu is read and closed from the event loop.
void addContextMenuOf(QWidget& widget, Texts& texts)
{
    QTimer::singleShot(0, &widget, [&widget, &texts] {
        if (const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
            addTextsOf(*menu, widget.objectName(), texts);
        if (QWidget* const popup = QApplication::activePopupWidget())
            popup->close();
    });
    const QPoint centre = widget.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, centre, widget.mapToGlobal(centre));
    QApplication::sendEvent(&widget, &event);
    QApplication::processEvents();
}

void addItemTexts(const QWidget& widget, Texts& texts)
{
    const auto* const list = qobject_cast<const QListView*>(&widget);
    for (int row = 0; list && list->model() && row < list->model()->rowCount(); ++row)
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole, Qt::AccessibleTextRole})
            texts.emplace_back(widget.objectName(), list->model()->index(row, 0).data(role).toString());
    const auto* const tabs = qobject_cast<const QTabBar*>(&widget);
    for (int tab = 0; tabs && tab < tabs->count(); ++tab)
        texts.emplace_back(widget.objectName(), tabs->tabText(tab) + tabs->tabToolTip(tab));
}

Texts textsOf(QWidget& window)
{
    Texts texts{{window.objectName(), window.windowTitle()}};
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        for (const char* const property : {"text", "title", "caption", "placeholderText", "informativeText"})
            texts.emplace_back(widget->objectName(), widget->property(property).toString());
        for (const QString& text : {widget->toolTip(), widget->accessibleName(), widget->accessibleDescription()})
            texts.emplace_back(widget->objectName(), text);
        addItemTexts(*widget, texts);
        addContextMenuOf(*widget, texts);
    }
    return texts;
}

/// Words with a Latin letter in them, but for names and the quoted captions that hold Latin letters on purpose.
QString latinWordsIn(QWidget& window)
{
    static const QRegularExpression latin("\\p{L}*[A-Za-z]\\p{L}*");
    static const QStringList allowed =
        QString("Lorvan AA Eνεργός OK PDF XLSX CSV pdf KB Ctrl Shift Enter F Home End Page Up Down S P E M Esc")
            .split(u' ');
    const Texts texts = textsOf(window);
    const bool hasFields = window.findChild<QLineEdit*>();
    EXPECT_TRUE(!hasFields || std::any_of(texts.begin(), texts.end(), [](const auto& each) {
        return each.first.endsWith("menu");
    })) << "no context menu was seen";
    QStringList found;
    for (const auto& [owner, text] : texts) {
        auto words = latin.globalMatch(QString(text).remove(u'&'));
        while (words.hasNext()) {
            if (!allowed.contains(words.next().captured()))
                found += owner + ": " + text;
        }
    }
    return found.join(u'\n');
}

void expectReadable(QWidget& window)
{
    layOutWhole();
    EXPECT_EQ(latinWordsIn(window), QString()) << window.objectName();
    EXPECT_EQ(cutOffIn(window), QString()) << window.objectName();
}

/// The desktop's font, a wide one, and a wide and large one.
void underEachFont(const std::function<void(bool isLarge)>& look)
{
    const QFont usual = QApplication::font();
    const QString wide = "DejaVu Sans";
    for (const auto& [family, factor] : {std::pair(usual.family(), 1.), std::pair(wide, 1.), std::pair(wide, 2.)}) {
        SCOPED_TRACE(family.toStdString());
        const DesktopFont font(family, qRound(usual.pointSizeF() * factor));
        look(factor > 1);
    }
}

class MainWindowLooks : public MainWindowTest { };
class ProgramLooks : public ProgramTest { };

/// What the Tab key visits from a control on, until it comes back there.
QStringList visitedFrom(const Driver& user, const QString& first)
{
    QStringList visited{first};
    user.goTo(user.find(first));
    for (int step = 0; step < 40; ++step) {
        user.press(Qt::Key_Tab);
        if (user.focusName() == first)
            return visited;
        visited += user.focusName();
    }
    ADD_FAILURE() << "the Tab key never returns to " << first;
    return visited;
}

/// The controls that can be used are visited as they are named here.
void expectOrder(const Driver& user, const QString& names)
{
    QStringList wanted = names.split(u' ');
    wanted.removeIf(
        [&user](const QString& name) { return !user.find(name).isVisible() || !user.find(name).isEnabled(); });
    QStringList visited = visitedFrom(user, wanted.first());
    visited.removeAll("Tab1");
    EXPECT_EQ(visited.join(u' '), wanted.join(u' '));
}

} // namespace

TEST_F(MainWindowLooks, everyPageIsGreekAndWhole)
{
    Book filled = book.open();
    (void)CashBook(filled, byAll()).insert(incomeOf(today, cents(123456789), "Πώληση"));
    underEachFont([this](bool isLarge) {
        start(allRights);
        if (isLarge) {
            OpeningPlacement::of(&window()).end(); // this screen is smaller than those on which such fonts are used
            window().resize(1366, 740);
        }
        user().doubleClickRow(list(), 1);
        for (const Tab tab : {CashTab, CodesTab, PrintingTab}) {
            selectTab(tab);
            expectReadable(window());
        }
    });
}

TEST_F(ProgramLooks, signInIsGreekAndWhole)
{
    underEachFont([this](bool) {
        program.reset();
        startToSignIn();
        expectReadable(loginWindow());
        signIn("wardenly", "73816");
        user().enter(0, "");
        expectReadable(loginWindow());
    });
}

TEST_F(ProgramLooks, dialogsAndReportWindowsAreGreekAndWhole)
{
    underEachFont([this](bool) {
        FR_ErvthshUpdate opening(fixedClock());
        Printers printers([] { return std::vector<Printer>{{"Αίθουσα", {}, {}}}; });
        ReportSaver saver;
        Ektypvsh frame(printers, saver);
        frame.open({}, " Ταμείο", {});
        PrinterChoice choice(printers, nullptr);
        Ervthsh form;
        FormaTajinomhshs sort;
        ProgressWindow progress({"α", "β", "γ"}, nullptr);
        progress.setProgress(1, 2);
        SaveDialog save("α", {{"β (*.pdf)", "pdf"}}, nullptr);
        save.setDirectory(book.folder());
        save.setSidebarUrls({}); // the user's folders have names of their own
        for (QWidget* const window :
            std::initializer_list<QWidget*>{&opening, &frame, &choice, &form, &sort, &progress, &save}) {
            showActive(*window);
            expectReadable(*window);
            window->hide();
        }
    });
}

TEST_F(MainWindowLooks, theTabKeyReadsEachPageAsTheEyeDoes)
{
    addMovement(expenseOf(today, cents(100)));
    start(allRights);
    EXPECT_EQ(user().focusName(), "DBCombo1");
    const QString cashPage =
        "DBCombo1 Text1(1) Text1(2) Text1(3) Text1(9) Check1(0) Command1(2) Command1(3) Command1(0) "
        "List1 Command1(8) Command1(4)";
    expectOrder(user(), "Text1(0) " + cashPage);
    user().doubleClickRow(list(), 1);
    expectOrder(user(), cashPage);
    selectTab(CodesTab);
    expectOrder(user(),
        "Text1(4) Text1(5) Text1(6) SSCheck1 SSCheck2 Command1(5) Command1(6) Command1(7) DBList1(0) DBList1(1) "
        "Command1(10) DBList1(2) Command1(9) filterCodes");
    selectTab(PrintingTab);
    EXPECT_EQ(user().focusName(), "List2(0)");
    expectOrder(user(),
        "List2(0) Text1(7) Text1(8) Command1(1) periods findRow(1) List2(1) chooseAll(1) findRow(2) List2(2) "
        "chooseAll(2)");
}

TEST_F(ProgramLooks, theTabKeyGoesOnThroughTheMaintenanceArea)
{
    startAsAdministrator();
    expectOrder(user(),
        "Text1(0) Text1(1) Command1(0) Command1(1) DBList1 Text1(2) Text1(3) SSCheck1(0) SSCheck1(1) SSCheck1(2) "
        "Command1(2) Command1(3) Command1(4) Command1(5) Command1(6) Command1(7) administratorTools");
}

} // namespace lorvan::test
