#pragma once

#include "cashbook/cash_book.h"
#include "cashbook/movement_fields.h"
#include "cashbook/refusal_window.h"
#include "controls/action_gate.h"
#include "controls/control_array.h"
#include "controls/leave_checks.h"
#include "movements/cleared_entry.h"
#include "movements/day_steps.h"
#include "movements/entry_copy.h"
#include "movements/stored_change.h"
#include "platform/clock.h"

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLayout;

namespace lorvan {

class Book;
class BookFiles;
class CodeChooser;
class CodePicker;
class CommandButton;
class DayList;
class DescriptionSuggestions;
class EntryField;
class KeyRing;
class StatePlate;
class UsageMarker;

/// The cash page `Panel1(1)`: one cash day and the fields for entering its movements.
class MovementEntryPage : public QWidget {
    Q_OBJECT

public:
    MovementEntryPage(Book& book, UsageMarker& marker, const Authority& authority, Clock clock, QWidget* parent);

    /// Returns the page's button with this index; the window that holds the page connects it.
    [[nodiscard]] CommandButton* button(int index) const { return m_commands[index]; }

    /// Shows today when the program starts, even if it is closed, and then without a message. Throws what the core
    /// throws.
    void start();
    /// Has the description suggest what movements of the same code were called. The keys must outlive the page.
    void suggestDescriptions(const BookFiles& files, KeyRing& keys);
    /// Reads the active codes again for the chooser. Throws SqlError.
    void refillCodes();
    /// Puts the focus on the chooser, or on the date if only that can be edited.
    void focusEntry();

    /// Checks the fields that were left and have not been checked yet. Returns false if one was refused.
    bool settle() { return m_checks.settle(); }
    /// The same, but also checks the field that has the focus, since the page is about to be left.
    bool leaveAll();

    /// The last day shown.
    [[nodiscard]] QDate day() const { return m_day; }

    /// What would be lost if the program ended now.
    [[nodiscard]] UnsavedEntry unsaved() const;

    /// True if no movement is loaded and none is being typed.
    [[nodiscard]] bool isEntryEmpty() const { return !m_loaded && entry().isEmpty(); }
    /// Whether an entry was cleared a moment ago and can be brought back.
    [[nodiscard]] bool hasCleared() const { return m_cleared.has_value(); }
    void bringBackCleared();
    [[nodiscard]] QDate shownDay() const { return m_day; }
    /// The code that the chooser has selected or whose number is typed into it; none if there is neither.
    [[nodiscard]] std::optional<qint32> chosenCode() const;

    /// The key of the movement that is loaded, or else of the line that is selected while the day list has the focus.
    [[nodiscard]] std::optional<qint64> chosenMovement() const;

    /// Reads the shown day again after a time in which another computer may have changed it; what the user has typed is
    /// kept. The box about a closed day is shown only if it was closed in the meantime.
    void lookAgain();

    /// Shows another day, as if the user had typed the date and left it; the fields must have been checked before (see
    /// leaveAll()). An entry that this clears can be brought back.
    void goTo(QDate day);

    /// Leads to another day as a key does: with the checks, boxes and reading of a typed date. Does nothing while a
    /// movement is loaded. What was typed and is cleared on the way can be brought back.
    void step(DayStep step);
    /// Shows a movement on its day: as goTo() does it, if another day is shown; then the movement's line is selected
    /// and the list has the focus. Returns false if the day is shown and has no such movement. Not to be called while a
    /// movement is loaded.
    [[nodiscard]] bool showMovement(QDate day, qint64 key);
    /// Whether a movement is loaded for modification or deletion.
    [[nodiscard]] bool isLoaded() const { return m_loaded.has_value(); }

    /// Copies code, description, amount and cheque mark of a movement into the entry of a day, which is shown first;
    /// stores nothing. What was typed there can be brought back. If it cannot be copied, a line below the list says
    /// why.
    void copyIntoEntry(const MovementDraft& movement, QDate day);

    void insertMovement();
    void modifyMovement();
    void removeMovement();
    void closeCash();

Q_SIGNALS:
    void figuresChanged(const lorvan::CashDayFigures& figures);
    void figuresUnknown(); ///< The day could not be read.
    void stored(const lorvan::StoredChange& change); ///< By this user, just now.
    void dayCorrected(const lorvan::DayCorrection& correction); ///< When it was shown.
    void dayClosed(const lorvan::ClosedDay& closed);

private:
    void createControls();
    void createCommands();
    CommandButton* addCommand(
        int index, const QString& icon, const QString& text, const QString& tip, std::optional<int> captionIndex);
    void layOut();
    QLayout* dayRow();
    QLayout* entryGrid();
    QLayout* commandRow();
    void setTabOrders();
    void connectControls();
    void watchFields();

    bool dateLeft();
    void goToDay(QDate day);
    void changeDay(QDate day);
    /// Where a step begins: the day in the date field while it is being typed. No value if that is none; the user has
    /// been told.
    [[nodiscard]] std::optional<QDate> dayToStepFrom();
    /// Checks again whether the shown day is closed and reads its rows; entry, focus and selected line are kept.
    void lookAtDayAgain(bool tellsKnownRefusal);
    /// Focus that the user did not request: leaving the date unchanged then does not count as a visit.
    void putIntoDate();
    void bringBackDay();
    bool judgeDay();
    void sayWhatIsMissing();
    [[nodiscard]] bool isRefused(QDate day);
    bool askClosedState(QDate day);
    void showClosedState(bool isClosed);
    [[nodiscard]] DayView readDay();
    void fill(const DayView& view);
    void showLines(const DayView& view);
    void showLinesAgain(const DayView& view);
    /// Selects the movement's line; false if the list has none.
    bool selectLine(qint64 key);
    /// The date in the date field; invalid if there is none.
    [[nodiscard]] QDate enteredDay() const;

    void codeChosen();
    void codeEntered();
    void codeNotUnderstood();
    [[nodiscard]] MovementFields::Kind selectedKind() const;

    [[nodiscard]] bool readDraft(MovementDraft& draft);
    bool change(RefusedOperation operation, const std::function<ChangeOutcome()>& run);
    void explain(MovementRefusal refusal, RefusedOperation operation);
    void clearEntry();
    [[nodiscard]] bool askToClose(QDate day);

    void lineClicked();
    void lineOpened(qint64 key);
    void load(const Movement& movement);
    void release();
    [[nodiscard]] EntryContent entry() const;
    void setEntry(const EntryContent& content);
    void keepCleared();
    void forgetCleared();
    void markMemorandum();
    void releaseChanged();
    void addKeys();
    void goToList();
    void openCalendar();
    void openTape(int index);
    void copyLine(QDate day);
    [[nodiscard]] std::optional<CopyRefusal> copyRefusal(const std::optional<MovementCode>& code, QDate day) const;
    void sayBelowList(const QString& text);
    void storeByKey();
    /// Escape: undoes a typed date that has not been shown yet, or unloads the movement.
    void takeBack();
    void setLoaded(const std::optional<Movement>& movement);

    Book& m_book;
    UsageMarker& m_marker;
    const Authority m_authority;
    const Clock m_clock;
    CashBook m_cashBook;
    const ActionGate m_gate;
    LeaveChecks m_checks;
    MovementFields m_fields;
    ControlArray<EntryField> m_texts;
    ControlArray<CommandButton> m_commands;
    EntryField* m_date = nullptr;
    CommandButton* m_calendar = nullptr;
    QLabel* m_weekday = nullptr;
    StatePlate* m_state = nullptr;
    CodeChooser* m_chooser = nullptr;
    CodePicker* m_picker = nullptr;
    DayList* m_list = nullptr;
    QDate m_day; ///< The last day shown, or that would have been shown but for a failure.
    bool m_putIntoDate = false;
    bool m_isRefused = false; ///< Whether this user may not change the shown day.
    bool m_hasCodes = true; ///< Active ones.
    bool m_memorandumStays = false; ///< Whether the amount was left there by the last insertion.

    struct Loaded {
        Movement movement;
        EntryContent shown; ///< What the fields contained at that time.
    };
    std::optional<Loaded> m_loaded; ///< For modification or deletion.
    std::optional<ClearedEntry> m_cleared; ///< Until the next key typed or the next action.
    QLabel* m_notBack = nullptr; ///< Says why a cleared entry is not restored, or a movement not copied.
};

} // namespace lorvan
