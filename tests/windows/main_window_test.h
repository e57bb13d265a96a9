#pragma once

#include "book/book_opening.h"
#include "main/kentrikh.h"
#include "proof/opening_balance.h"
#include "support/book_model.h"
#include "support/files.h"
#include "support/temporary_book.h"
#include "windows/box_script.h"

#include <QComboBox>
#include <QTabBar>

#include <memory>
#include <optional>

namespace lorvan::test {

inline const Rights noRights{};
inline const Rights allRights{true, true, true};

/// The text of the box that keeps a closed day closed.
[[nodiscard]] inline ExpectedBox dayIsClosed()
{
    return stop("Προσοχή", "Το ταμείο έχει κλείσει και δεν έχετε δικαίωμα να το μεταβάλετε");
}

[[nodiscard]] inline ExpectedBox modifyQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, "Μεταβολή στοιχείων", "Να γίνει η μεταβολή των στοιχείων;", answer);
}

/// Another computer's user, as the marker names her.
[[nodiscard]] inline MachineIdentity otherUser()
{
    return {"Ελένη", "γραφείο"};
}

/// The main window on a book of its own, started on Friday, 15 March 2024.
class MainWindowTest : public testing::Test {
protected:
    enum Tab { CashTab, CodesTab, PrintingTab, ExitTab };
    static constexpr int date = 0, description = 1, income = 2, expense = 3, memorandum = 9;
    static constexpr int insert = 0, modify = 2, remove = 3, closeCash = 8;

    /// Again: closes the window that was there and opens another.
    void start(Rights rights = noRights, const Clock& clock = fixedClock())
    {
        if (m_window)
            m_window->end();
        UsageMarker marker(book.files().usageMarker(), {"Μαρία", "ταμείο"});
        DataFolderSettings settings;
        settings.dataFolder = book.folder();
        const auto nothing = [] { return OpeningBalance{}; };
        Book opened = openBook(book.files(), testKeys(), marker, byAll(), nothing, openingSteps());
        m_window = std::make_unique<Kentrikh>(std::move(opened), std::move(marker),
            Authority::user(QStringLiteral("Σοφία"), rights, clock), settings, clock, testKeys());
        m_user.emplace(*m_window);
        m_window->initialise();
        showActive(*m_window);
    }

    [[nodiscard]] Kentrikh& window() const { return *m_window; }
    [[nodiscard]] const Driver& user() const { return *m_user; }
    [[nodiscard]] QComboBox& chooser() const { return user().find<QComboBox>("DBCombo1"); }
    [[nodiscard]] QListView& list(const QString& name = "List1") const { return user().find<QListView>(name); }
    [[nodiscard]] QString notice() const { return user().text("notices"); }
    /// The caption of the day's state.
    [[nodiscard]] QString state() const { return user().find("Label3D1(3)").property("caption").toString(); }
    /// Income, expense and balance of the status bar, with " | " between.
    [[nodiscard]] QString shownFigures() const
    {
        return QStringList{user().text("Bar1(2)"), user().text("Bar1(4)"), user().text("Bar1(6)")}.join(" | ");
    }
    [[nodiscard]] QString movementLine(int number) const { return linesOf(list()).section(u'\n', number, number); }
    [[nodiscard]] QTabBar& tabs() const { return user().find<QTabBar>("Tab1"); }
    void selectTab(int tab) const
    {
        const QPoint place = tabs().mapTo(&window(), tabs().tabRect(tab).center());
        QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {}, place);
    }
    void press(int command) const { user().click(user().command(command)); }

    /// Picks a code by its number, as a user who types it.
    void chooseCode(const QString& number) const
    {
        user().goTo(chooser());
        user().type(number + u'\n');
    }
    /// Code, description and amount, up to the press of the insert button.
    void typeMovement(const QString& code, const QString& words, const QString& amount) const
    {
        chooseCode(code);
        user().type(words + u'\n' + amount + u'\n');
    }
    /// Income, expense, memorandum, description, chooser: what the entry holds, with " | " between.
    [[nodiscard]] QString entry() const
    {
        QStringList texts;
        for (const int index : {income, expense, memorandum, description})
            texts += user().field(index).text();
        return (texts << chooser().currentText()).join(" | ");
    }

    void addMovement(const MovementDraft& movement) const { book.addMovementRow(movement); }
    void addCashDay(QDate day, Currency balance) const
    {
        Connection main = book.openMain();
        main.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,0,0,?)")
            .bind(day, balance)
            .run();
    }
    [[nodiscard]] CashDayLines cashDays() const
    {
        Connection main = book.openMain();
        return storedCashDays(main);
    }
    /// The first value of a query on the main database.
    [[nodiscard]] QString stored(std::string_view sql) const
    {
        Connection main = book.openMain();
        return valueOf(main, sql);
    }
    [[nodiscard]] QString closedDays() const
    {
        Connection auxiliary = book.openAuxiliary();
        return valueOf(auxiliary, "SELECT group_concat(hmeraklhsimatos) FROM klhsimotameioy");
    }
    [[nodiscard]] QByteArray markerBytes() const { return readFile(book.files().usageMarker()); }
    [[nodiscard]] UsageMarker otherComputer() const { return {book.files().usageMarker(), otherUser()}; }

    static inline const QDate today{2024, 3, 15}, tomorrow{2024, 3, 16}, yesterday{2024, 3, 14};

    TemporaryBook book;
    BoxScript boxes;

private:
    std::unique_ptr<Kentrikh> m_window;
    std::optional<Driver> m_user;
};

} // namespace lorvan::test
