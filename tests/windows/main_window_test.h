#pragma once

#include "main/kentrikh.h"
#include "support/book_model.h"
#include "support/temporary_book.h"
#include "windows/box_script.h"
#include "windows/driver.h"

#include <QComboBox>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace lorvan::test {

inline const Rights noRights{};
inline const Rights allRights{true, true, true};

/// The text of the box that keeps a closed day closed.
[[nodiscard]] ExpectedBox dayIsClosed();
[[nodiscard]] ExpectedBox modifyQuestion(QMessageBox::StandardButton answer);
/// Another computer's user, as the marker names her.
[[nodiscard]] MachineIdentity otherUser();

/// The main window on a book of its own, started on Friday, 15 March 2024.
class MainWindowTest : public testing::Test {
protected:
    static constexpr int date = 0, description = 1, income = 2, expense = 3, memorandum = 9;
    static constexpr int insert = 0, modify = 2, remove = 3, closeCash = 8;

    /// Again: closes the window that was there and opens another.
    void start(Rights rights = noRights, const Clock& clock = fixedClock());

    [[nodiscard]] Kentrikh& window() const { return *m_window; }
    [[nodiscard]] const Driver& user() const { return *m_user; }
    [[nodiscard]] QComboBox& chooser() const { return user().find<QComboBox>(QStringLiteral("DBCombo1")); }
    [[nodiscard]] QListView& list() const { return user().find<QListView>(QStringLiteral("List1")); }
    [[nodiscard]] QString state() const; ///< The caption of the day's state.
    [[nodiscard]] QString shownFigures() const; ///< Income, expense and balance of the status bar, with " | " between.
    [[nodiscard]] QString movementLine(int number) const; ///< Of the day list.
    void selectTab(int tab) const; ///< By a click.

    /// Picks a code by its number, as a user who types it.
    void chooseCode(const QString& number) const;
    /// Code, description and amount, up to the press of the insert button.
    void typeMovement(const QString& code, const QString& words, const QString& amount) const;
    /// Income, expense, memorandum, description, chooser: what the entry holds, with " | " between.
    [[nodiscard]] QString entry() const;

    void addMovement(const MovementDraft& movement) const { book.addMovementRow(movement); }
    void addCashDay(QDate day, Currency balance) const;
    [[nodiscard]] CashDayLines cashDays() const;
    [[nodiscard]] QString stored(std::string_view sql) const; ///< The first value of a query on the main database.
    [[nodiscard]] QByteArray markerBytes() const;
    [[nodiscard]] UsageMarker otherComputer() const;

    static const QDate today, tomorrow, yesterday;

    TemporaryBook book;
    BoxScript boxes;

private:
    std::unique_ptr<Kentrikh> m_window;
    std::optional<Driver> m_user;
};

} // namespace lorvan::test
