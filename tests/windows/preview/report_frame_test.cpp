#include "look/busy_pointer.h"
#include "look/window_placement.h"
#include "preview/preview_tools.h"
#include "preview/printers.h"
#include "windows/preview/printing_test.h"

#include <QAccessible>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <future>

namespace lorvan::test {
namespace {

const QString titles = "α/α|Περιγραφή";
const QString format = ">1000|<6000";
constexpr int rowsOnAPage = 50;

/// About fifty rows to a page. Row 60 and the last one say "Τέλος".
ReportDocument report(int rows)
{
    ReportDocument document;
    document.StandardPageSetup();
    document.AddTable(format, titles, {});
    for (int row = 1; row < rows; ++row)
        document.AddTableRow(format, {}, {QString::number(row), row == 60 ? u"Τέλος;" : u"ΠΩΛΗΣΗ"});
    document.AddTableRow(format, {}, {u"", u"ΤΕΛΟΣ"});
    document.EndDoc();
    return document;
}

std::vector<Printer> twoPrinters()
{
    return {{"Α", "Μελάνης", {}}, {"Β", {}, {}, true}};
}

/// A frame over printers of its own.
class ReportFrame : public testing::Test {
protected:
    void open(ReportDocument document, Printers::Question question = twoPrinters)
    {
        printers.emplace(std::move(question));
        frame.emplace(*printers, saver);
        user.emplace(*frame);
        frame->open(std::move(document), " Ταμείο ημέρας", "Ταμείο");
        titleAtFirst = frame->windowTitle();
        showActive(*frame);
    }
    void openComplete(int rows)
    {
        open(report(rows));
        ASSERT_TRUE(comesTrue([this] { return view().pages()->isComplete(); }));
        ASSERT_TRUE(comesTrue([this] { return printers->isKnown(); }));
    }
    [[nodiscard]] PageView& view() const { return viewOf(*frame); }
    [[nodiscard]] QAction& action(const char* name) const { return *frame->findChild<QAction*>(name); }
    [[nodiscard]] QAbstractButton& button(const char* name) const { return user->find<QAbstractButton>(name); }
    /// "1 / 4": what the tool row says of the pages.
    [[nodiscard]] QString pages() const
    {
        return user->find<QLineEdit>("pageNumber").text() + u' ' + user->text("pageCount");
    }
    void expectTitle(const QString& title) const
    {
        EXPECT_TRUE(comesTrue([&] { return frame->windowTitle() == title; })) << frame->windowTitle();
    }
    [[nodiscard]] QString zoom() const { return user->text("zoom"); }
    void turnWheel(Qt::KeyboardModifier key, int notches) const
    {
        QWheelEvent wheel(QPointF(99, 99), view().mapToGlobal(QPointF(99, 99)), {}, QPoint(0, notches * 120), {}, key,
            Qt::NoScrollPhase, false);
        QApplication::sendEvent(view().viewport(), &wheel);
    }

    BoxScript boxes;
    ReportSaver saver;
    std::optional<Printers> printers;
    std::optional<Ektypvsh> frame;
    std::optional<Driver> user;
    QString titleAtFirst;
};

const QString withoutPrinter = " Ταμείο ημέρας Προσοχή δεν υπάρχει ορισμένος εκτυπωστής)";
const QString onB = " Ταμείο ημέρας  στον  Β";

} // namespace

TEST_F(ReportFrame, menuHasItsEntriesAndKeys)
{
    openComplete(1);
    QStringList entries;
    for (const QAction* const entry : frame->menuBar()->actions().first()->menu()->actions())
        entries += entry->objectName() + u' ' + entry->text() + u' ' + entry->shortcut().toString();
    EXPECT_EQ(frame->menuBar()->actions().first()->text(), "Εκτυπώσεις");
    EXPECT_EQ(entries.join(u'\n'),
        "menu(1) Επιλογή εκτυπωτή \nmenu(15) Εκτύπωση τρέχουσας \nmenu(20) Εκτύπωση Ctrl+P\n"
        "menu(30) Επιστροφή Ctrl+E");
}

TEST_F(ReportFrame, captionAndEntriesFollowThePrinters)
{
    open(report(1), [] { return std::vector<Printer>(); });
    expectTitle(withoutPrinter);
    EXPECT_FALSE(action("menu(1)").isEnabled() || action("menu(20)").isEnabled());
    EXPECT_FALSE(button("menu(20)").isEnabled());
    EXPECT_TRUE(action("menu(15)").isEnabled());
    boxes.expect(partly(information("Προσοχή", "Δεν υπάρχει εκτυπωτής.")));
    action("menu(15)").trigger();

    open(report(1));
    expectTitle(onB);
    EXPECT_TRUE(action("menu(1)").isEnabled() && action("menu(20)").isEnabled() && button("menu(20)").isEnabled());
}

TEST_F(ReportFrame, aSlowPrintSystemIsNotWaitedFor)
{
    std::promise<void> answer;
    open(report(1), [wait = answer.get_future().share()] {
        wait.wait();
        return twoPrinters();
    });
    EXPECT_EQ(titleAtFirst, " Ταμείο ημέρας");
    boxes.expect(partly(information("Προσοχή", "Δοκιμάστε ξανά")));
    action("menu(15)").trigger();
    expectTitle(withoutPrinter);
    answer.set_value();
    expectTitle(onB);
}

TEST_F(ReportFrame, theNextReportHasTheChosenPrinterAndTheSizeLeft)
{
    openComplete(1);
    boxes.whenShown("printerChoice", [](QWidget& choice) {
        const Driver driver(choice);
        auto& list = driver.find<QListView>("printers");
        EXPECT_EQ(linesOf(list), "Α – Μελάνης\nΒ (προεπιλογή)");
        EXPECT_EQ(list.currentIndex().row(), 1);
        driver.press(Qt::Key_Up);
        driver.press(Qt::Key_Return);
    });
    action("menu(1)").trigger();
    expectTitle(" Ταμείο ημέρας  στον  Α");
    frame->resize(720, 500);
    frame->unload();
    frame.emplace(*printers, saver);
    frame->open(report(1), " Επιταγές", {});
    EXPECT_EQ(frame->windowTitle(), " Επιταγές  στον  Α");
    EXPECT_EQ(frame->size(), QSize(720, 500)) << "as the user left the one before";
}

TEST_F(ReportFrame, theKeysOfTheMenuWorkInAFieldTooButNotWhileAnotherActionRuns)
{
    for (const char* const field : {"pageNumber", "findText"}) {
        openComplete(1);
        {
            const BusyPointer busy;
            action("menu(30)").trigger();
            EXPECT_TRUE(frame->isVisible());
        }
        // A field takes this key for itself, as it does Ctrl+E on X11.
        action("menu(30)").setShortcut(Qt::CTRL | Qt::Key_A);
        user->goTo(user->find(field));
        user->press(Qt::Key_A, Qt::ControlModifier);
        EXPECT_FALSE(frame->isVisible()) << field;
    }
    frame->unload();
    frame->close();
}

TEST_F(ReportFrame, laysThePagesOutInTheirPlaceAtAnySize)
{
    openComplete(1);
    for (const QSize size : {QSize(1, 1), QSize(1300, 900), QSize(760, 680)}) {
        frame->resize(size);
        QApplication::processEvents();
        const QSize area = view().parentWidget()->size();
        const QSize room = (area - QSize(20, 7)).expandedTo({0, 0});
        EXPECT_EQ(view().geometry(), QRect(QPoint(7, 7), room)) << size.width();
    }
}

TEST_F(ReportFrame, keysAndButtonsTurnThePages)
{
    openComplete(4 * rowsOnAPage);
    const int last = view().pageCount() - 1;
    ASSERT_EQ(last, 3);
    EXPECT_EQ(user->focusName(), "Tg");
    const struct {
        Qt::Key key;
        int page;
    } cases[] = {{Qt::Key_PageUp, 0}, {Qt::Key_PageDown, 1}, {Qt::Key_PageDown, 2}, {Qt::Key_End, 3},
        {Qt::Key_PageDown, 3}, {Qt::Key_PageUp, 2}, {Qt::Key_Home, 0}};
    for (const auto& each : cases) {
        user->press(each.key);
        EXPECT_EQ(view().currentPage(), each.page);
        EXPECT_EQ(pages(), QString("%1 / 4").arg(each.page + 1));
        EXPECT_EQ(button("previousPage").isEnabled() && button("firstPage").isEnabled(), each.page > 0);
        EXPECT_EQ(button("nextPage").isEnabled() && button("lastPage").isEnabled(), each.page < last);
    }
    user->click(button("nextPage"));
    EXPECT_EQ(view().currentPage(), 1);
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum());
    EXPECT_EQ(pages(), "4 / 4");
    for (const auto& [typed, page] : {std::pair("3", 2), std::pair("99", 3), std::pair("0", 3)}) {
        user->goTo(user->find("pageNumber"));
        user->type(QLatin1String(typed) + u'\n');
        user->goTo(view());
        EXPECT_EQ(view().currentPage(), page) << typed;
    }
    user->goTo(user->find("pageNumber"));
    for (const char* const digit : {"1", "2"}) {
        user->type(digit);
        frame->findChild<PreviewTools*>()->setPages(0, 13, false); // more pages are found meanwhile
    }
    EXPECT_EQ(pages(), "12 / 13+");
}

TEST_F(ReportFrame, sizeChangesByKeysWheelAndFit)
{
    openComplete(4 * rowsOnAPage);
    frame->resize(1000, 600);
    view().goToPage(2);
    user->press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(zoom(), "110 %");
    user->press(Qt::Key_0, Qt::ControlModifier);
    turnWheel(Qt::ControlModifier, -2);
    EXPECT_EQ(zoom(), "75 %");
    user->click(button("fitPage"));
    EXPECT_LE(view().horizontalScrollBar()->maximum(), 0);
    user->click(button("fitWidth"));
    EXPECT_EQ(view().currentPage(), 2);
    const QString before = zoom();
    frame->resize(frame->size() + QSize(120, 0));
    EXPECT_TRUE(comesTrue([&] { return zoom() != before; }));
    EXPECT_EQ(view().horizontalScrollBar()->maximum(), 0);
}

TEST_F(ReportFrame, toolsThatDoNotFitMoveIntoAMenu)
{
    openComplete(1);
    const QSize first = frame->size();
    for (const int width : {1000, 683, 600}) {
        frame->resize(width, 400);
        const bool folds = width < 1000;
        EXPECT_TRUE(comesTrue([&] { return user->find("more").isVisible() == folds; })) << width;
        EXPECT_EQ(button("fitPage").isHidden(), folds);
        for (const char* const last : {"menu(20)", "menu(30)"})
            EXPECT_TRUE(button(last).findChild<QLabel*>()->isVisible()) << width << last;
        if (!folds)
            continue;
        user->click(button("more"));
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(QApplication::activePopupWidget()->actions().contains(&action("fitPage")));
        QApplication::activePopupWidget()->close();
    }
    frame->resize(first); // which is remembered
}

TEST_F(ReportFrame, theMouseDoesMoreWhereTheDocumentAsksForIt)
{
    for (const bool asks : {false, true}) {
        ReportDocument document = report(4 * rowsOnAPage);
        document.MouseZoom(asks);
        document.MousePage(asks);
        document.MouseScroll(asks);
        open(std::move(document));
        ASSERT_TRUE(comesTrue([this] { return view().pages()->isComplete(); }));
        QWidget* const paper = view().viewport();
        EXPECT_EQ(paper->toolTip().isEmpty(), !asks);
        turnWheel(Qt::ShiftModifier, -2);
        EXPECT_EQ(view().currentPage(), asks ? 2 : 0);
        QTest::mouseClick(paper, Qt::BackButton);
        EXPECT_EQ(view().currentPage(), asks ? 1 : 0);
        QTest::mouseDClick(paper, Qt::LeftButton);
        QTest::mouseRelease(paper, Qt::LeftButton); // a double click ends with the button pressed
        EXPECT_EQ(zoom(), asks ? "110 %" : "100 %");
        view().setZoom(1);
        const int before = view().verticalScrollBar()->value();
        QTest::mousePress(paper, Qt::MiddleButton, {}, QPoint(99, 199));
        QTest::mouseMove(paper, QPoint(99, 99));
        QTest::mouseRelease(paper, Qt::MiddleButton, {}, QPoint(99, 99));
        EXPECT_EQ(view().verticalScrollBar()->value() != before, asks);
    }
}

TEST_F(ReportFrame, aLineLeadsToWhatItStandsFor)
{
    for (const bool zooms : {false, true}) {
        ReportDocument document;
        document.StandardPageSetup();
        document.MouseZoom(zooms);
        document.AddTable(format, titles, {u"1", u"ΤΙΠΟΤΑ"});
        document.AddTableRow(format, {}, {u"2", u"ΗΜΕΡΑ"});
        const RowSubject day{RowSubject::Kind::Day, 20240315};
        document.RowStandsFor(day);
        open(std::move(document));
        std::vector<RowSubject> followed;
        QObject::connect(&*frame, &Ektypvsh::followed, [&](const RowSubject& subject) { followed.push_back(subject); });
        const auto doubleClick = [this](const char* text, Qt::KeyboardModifiers keys) {
            const QPointF twips = view().pages()->find(SearchText(QString(text)), 0).at(0).center();
            const int pageWidth = qRound(view().pages()->pageSize().width() / PageStack::twipsInPixel);
            const QPoint corner((view().viewport()->width() - pageWidth) / 2, PageStack::margin);
            const QPoint place = corner + (twips / PageStack::twipsInPixel).toPoint();
            QTest::mouseDClick(view().viewport(), Qt::LeftButton, keys, place);
            QTest::mouseRelease(view().viewport(), Qt::LeftButton, keys, place);
            view().setZoom(1);
        };
        const auto following = zooms ? Qt::ControlModifier : Qt::NoModifier;
        doubleClick("ΤΙΠΟΤΑ", following);
        doubleClick("ΗΜΕΡΑ", zooms ? Qt::NoModifier : Qt::ControlModifier);
        EXPECT_TRUE(followed.empty());
        doubleClick("ΗΜΕΡΑ", following);
        EXPECT_EQ(followed.size(), 1U);
        user->press(Qt::Key_F, Qt::ControlModifier);
        user->type("ημερα");
        user->press(Qt::Key_Escape);
        EXPECT_TRUE(comesTrue([&] {
            user->press(Qt::Key_Return);
            return followed.size() == 2;
        }));
        EXPECT_EQ(followed.back(), day);
    }
}

TEST_F(ReportFrame, readsThePageTurnedToAloud)
{
    openComplete(2 * rowsOnAPage);
    QAccessibleInterface* const reading = QAccessible::queryAccessibleInterface(&view());
    ASSERT_TRUE(reading && reading->textInterface());
    EXPECT_TRUE(reading->text(QAccessible::Value).endsWith("Σελίδα 1"));
    user->press(Qt::Key_End);
    const QString all = reading->textInterface()->text(0, reading->textInterface()->characterCount());
    EXPECT_TRUE(all.startsWith("α/α\tΠεριγραφή\n") && all.endsWith("Σελίδα 2"));
    auto* const lens = user->find("findText").findChild<QAbstractButton*>();
    ASSERT_NE(lens, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(lens)->text(QAccessible::Name), "Εύρεση");
}

TEST_F(ReportFrame, standsInTheMiddleUntilTheUserMovesIt)
{
    const QPoint elsewhere(3, 5);
    printers.emplace(twoPrinters);
    frame.emplace(*printers, saver);
    frame->show();
    frame->move(elsewhere); // as a window manager does that places late
    EXPECT_TRUE(comesTrue([this] {
        const QRect area = frame->screen()->availableGeometry();
        return frame->pos() == centredIn(area, frame->frameGeometry().size());
    }));
    EXPECT_TRUE(comesTrue([&] {
        frame->move(elsewhere);
        QTest::qWait(200);
        return frame->pos() == elsewhere;
    })) << "not when it has stood for a while";
    QEvent activation(QEvent::ActivationChange);
    QApplication::sendEvent(&*frame, &activation);
    EXPECT_EQ(frame->pos(), elsewhere);
}

TEST_F(ReportFrame, showsTheFirstPageBeforeTheLastIsLaidOut)
{
    struct FirstPaint : QObject {
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint && !pagesThen) {
                pagesThen = view->pageCount();
                QTimer::singleShot(0, view, &PageView::goToLastPage);
            }
            return false;
        }
        PageView* view = nullptr;
        std::optional<int> pagesThen;
    };
    printers.emplace(twoPrinters);
    frame.emplace(*printers, saver);
    FirstPaint first;
    first.view = &view();
    view().viewport()->installEventFilter(&first);
    frame->open(report(1'000'000), {}, {});
    frame->show();
    ASSERT_TRUE(comesTrue([this] { return view().pages()->isComplete(); }));
    EXPECT_LT(first.pagesThen.value_or(view().pageCount()), view().pageCount());
    EXPECT_EQ(view().currentPage(), view().pageCount() - 1);
}

TEST_F(ReportFrame, findsFromPlaceToPlaceAndRound)
{
    openComplete(4 * rowsOnAPage);
    user->press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(user->focusName(), "findText");
    const auto isOn = [this](int page) { return comesTrue([&] { return view().currentPage() == page; }); };
    user->type("τελοσ");
    EXPECT_TRUE(isOn(1));
    user->press(Qt::Key_Return);
    EXPECT_TRUE(isOn(3));
    user->press(Qt::Key_F3);
    EXPECT_TRUE(isOn(1)) << "round";
    user->press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_TRUE(isOn(3)) << "back";
    user->type("!");
    EXPECT_TRUE(comesTrue([this] { return user->text("state").contains("δεν"); }));
    user->press(Qt::Key_Escape);
    EXPECT_EQ(user->focusName(), "Tg");
}

} // namespace lorvan::test
