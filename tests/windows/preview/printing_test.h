#pragma once

#include "preview/ektypvsh.h"
#include "preview/page_view.h"
#include "windows/main_window_test.h"

#include <QApplication>
#include <QTest>

namespace lorvan::test {

/// No print server answers while it lives, whatever the machine has.
class NoPrinters {
public:
    NoPrinters() { qputenv("CUPS_SERVER", "/nowhere/cups.sock"); }
    ~NoPrinters() { qunsetenv("CUPS_SERVER"); }
    NoPrinters(const NoPrinters&) = delete;
    NoPrinters& operator=(const NoPrinters&) = delete;
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
    return *frame.findChild<PageView*>(QStringLiteral("Tg"));
}

[[nodiscard]] inline const ReportDocument& documentOf(const Ektypvsh& frame)
{
    return viewOf(frame).pages()->document();
}

/// Presses keys in a question that has just been shown, once it has the focus.
inline void pressIn(QWidget& question, const std::vector<Qt::Key>& keys)
{
    EXPECT_TRUE(QTest::qWaitFor([&question] { return QApplication::activeWindow() == &question; }));
    for (const Qt::Key key : keys)
        Driver(question).press(key);
}

/// The main window on its printing page, on a machine without printers.
class PrintingTest : public MainWindowTest {
protected:
    static constexpr int periodStart = 7, periodEnd = 8, printReport = 1;

    void startPrinting()
    {
        start(allRights);
        selectTab(2);
    }
    [[nodiscard]] QListView& reports() const { return user().find<QListView>(QStringLiteral("List2(0)")); }
    /// By the number in the list.
    void print(int report) const
    {
        user().clickRow(reports(), report - 1);
        user().click(user().command(printReport));
    }

    NoPrinters noPrinters;
};

} // namespace lorvan::test
