#pragma once

#include "cashbook/cash_book.h"
#include "cashbook/cleared_entry.h"
#include "cashbook/movement_fields.h"
#include "cashbook/refusal_window.h"
#include "controls/control_array.h"
#include "controls/leave_checks.h"
#include "platform/clock.h"

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLayout;

namespace lorvan {

class Book;
class CodeChooser;
class CodePicker;
class CommandButton;
class DayList;
class EntryField;
class StatePlate;
class UsageMarker;

/// The cash page `Panel1(1)`: one cash day with the entry of its movements.
class MovementEntryPage : public QWidget {
    Q_OBJECT

public:
    MovementEntryPage(Book& book, UsageMarker& marker, Rights rights, Clock clock, QWidget* parent);

    /// Shows today as the program starts: a closed day is shown without a refusal. Throws what the core throws.
    void start();
    /// Reads the active codes anew for the chooser. Throws SqlError.
    void refillCodes();
    /// To the chooser; to the date where nothing else can be typed into.
    void focusEntry();

    /// Judges the fields that were left and not judged yet. False when one was refused.
    bool settle() { return m_checks.settle(); }
    /// The same, with the field that has the focus judged too: the page is about to go.
    bool leaveAll();

    /// What would be lost if the program ended now.
    [[nodiscard]] UnsavedEntry unsaved() const;

    /// Reads the shown day again after a while in which another computer may have changed it; what is typed stays. The
    /// box about a closed day is for one that was closed meanwhile.
    void lookAgain();

    void insertMovement();
    void modifyMovement();
    void removeMovement();
    void closeCash();

Q_SIGNALS:
    void commandPressed(int index);
    void figuresChanged(const lorvan::CashDayFigures& figures);
    void figuresUnknown(); ///< The day could not be read.
    void dayClosed(QDate day); ///< It was open until now.

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
    /// Asks whether the shown day is closed and reads its rows; entry, focus and chosen line stay.
    void lookAtDayAgain(bool tellsKnownRefusal);
    /// The user did not go there: leaving it untouched is no visit then.
    void putIntoDate();
    void bringBackDay();
    bool judgeDay();
    [[nodiscard]] bool isRefused(QDate day);
    bool showClosedState(QDate day);
    [[nodiscard]] DayView readDay();
    void fill(const DayView& view);
    void showLines(const DayView& view);
    void showLinesAgain(const DayView& view);
    /// The movement's line, where the list has one.
    void selectLine(qint64 key);
    /// The date field's day; invalid when it holds none.
    [[nodiscard]] QDate enteredDay() const;

    void codeChosen();
    void codeEntered();
    void codeNotUnderstood();
    [[nodiscard]] MovementFields::Kind selectedKind() const;

    [[nodiscard]] bool readDraft(MovementDraft& draft);
    bool change(RefusedOperation operation, const std::function<ChangeOutcome()>& run);
    void explain(Refusal refusal, RefusedOperation operation);
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
    void bringBackCleared();
    void markMemorandum();
    void releaseChanged();
    void addKeys();
    /// Escape: the date that was typed and not shown yet, or the loaded movement.
    void takeBack();
    void setLoaded(const std::optional<Movement>& movement);

    Book& m_book;
    UsageMarker& m_marker;
    const Rights m_rights;
    const Clock m_clock;
    CashBook m_cashBook;
    LeaveChecks m_checks;
    MovementFields m_fields;
    ControlArray<EntryField> m_texts;
    ControlArray<CommandButton> m_commands;
    EntryField* m_date = nullptr;
    QLabel* m_weekday = nullptr;
    StatePlate* m_state = nullptr;
    CodeChooser* m_chooser = nullptr;
    CodePicker* m_picker = nullptr;
    DayList* m_list = nullptr;
    QDate m_day; ///< The day that was shown last, or would be but for a failure.
    bool m_putIntoDate = false;
    bool m_isRefused = false; ///< The shown day may not be changed by this user.
    bool m_memorandumStays = false; ///< The amount was left by the last insertion.

    struct Loaded {
        Movement movement;
        EntryContent shown; ///< What the fields held then.
    };
    std::optional<Loaded> m_loaded; ///< For modification or deletion.
    std::optional<ClearedEntry> m_cleared; ///< Until the next key typed or the next action.
    QLabel* m_notBack = nullptr; ///< Why a cleared entry does not come back.
};

} // namespace lorvan
