#pragma once

#include "preview/ektypvsh.h"
#include "preview/page_view.h"
#include "preview/report_saver.h"
#include "windows/main_window_test.h"

#include <QApplication>

namespace lorvan::test {

/// No print server answers while it lives, whatever the machine has.
class NoPrinters {
public:
    NoPrinters() { qputenv("CUPS_SERVER", "/nowhere/cups.sock"); }
    ~NoPrinters() { qunsetenv("CUPS_SERVER"); }
    Q_DISABLE_COPY_MOVE(NoPrinters)
};

/// The frame that is shown; null without one.
[[nodiscard]] inline Ektypvsh* shownFrame()
{
    Ektypvsh* shown = nullptr;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const frame = qobject_cast<Ektypvsh*>(window); frame && frame->isVisible()) {
            EXPECT_EQ(shown, nullptr) << "two frames";
            shown = frame;
        }
    }
    return shown;
}

[[nodiscard]] inline PageView& viewOf(const Ektypvsh& frame)
{
    return *frame.findChild<PageView*>("Tg");
}

/// Presses keys in a question that has just been shown, once it has the focus.
inline void pressIn(QWidget& question, const std::vector<Qt::Key>& keys)
{
    EXPECT_TRUE(comesTrue([&question] { return QApplication::activeWindow() == &question; }));
    for (const Qt::Key key : keys)
        Driver(question).press(key);
}

/// A frame that saves and prints, with the print system that there is to be.
template <typename PrintSystem> class FrameTest : public testing::Test {
protected:
    void open(ReportDocument document, const QString& title = " Ταμείο")
    {
        frame.open(std::move(document), title, "Ταμείο");
        showActive(frame);
    }
    void trigger(const char* action) const { frame.findChild<QAction*>(action)->trigger(); }
    [[nodiscard]] QString state() const { return user.text("state"); }

    PrintSystem printSystem;
    BoxScript boxes;
    Printers printers;
    ReportSaver saver;
    Ektypvsh frame{printers, saver};
    Driver user{frame};
};

/// The main window on its printing page, on a machine without printers.
class PrintingTest : public MainWindowTest {
protected:
    static constexpr int periodStart = 7, periodEnd = 8, printReport = 1;

    void startPrinting()
    {
        start(allRights);
        selectTab(PrintingTab);
    }
    [[nodiscard]] QListView& reports() const { return list("List2(0)"); }
    /// By the number in the list.
    void print(int report) const
    {
        user().clickRow(reports(), report - 1);
        press(printReport);
    }
    /// Of the frame that is shown.
    [[nodiscard]] static const ReportDocument& document() { return viewOf(*shownFrame()).pages()->document(); }
    void answer(const QString& question, std::vector<Qt::Key> keys)
    {
        boxes.whenShown(question, [keys = std::move(keys)](QWidget& shown) { pressIn(shown, keys); });
    }

    NoPrinters noPrinters;
};

} // namespace lorvan::test
