#pragma once

#include <QDate>
#include <QObject>

#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

class QWidget;

namespace lorvan {

class EntryField;

/// Checks fields after the focus has left them. Since a check may open a message box, it waits until the focus has
/// settled and no mouse button is down: a box opened earlier would swallow the release of the mouse button.
class LeaveChecks : public QObject {
    Q_OBJECT

public:
    /// Returns false if the content of the field was refused; the field then gets the focus back.
    using Check = std::function<bool()>;

    explicit LeaveChecks(QObject* parent);

    /// `takeBack` restores what the field contained before a refused text, in cases in which the field must not keep
    /// it.
    void add(QWidget* field, Check check, std::function<void()> takeBack = {});

    /// To be called when the focus leaves the field; it is checked shortly afterwards.
    void left(QWidget* field);

    /// Runs the waiting checks immediately. Returns false if one of them refused.
    bool settle();

    /// The same, but also checks the field that has the focus, as if it had been left; the focus stays there.
    bool settleFocused();

    /// Drops the waiting checks: the fields are about to be checked in another way.
    void drop() { m_waiting.clear(); }

    /// Forgets that this field was left, and any refused text in it.
    void forget(QWidget* field);

    /// Like settle(), but also checks the field that has the focus, since its page is about to be left. A text that was
    /// refused before and is still there does not keep the user on the page: it is taken back instead.
    bool leaveAll();

private:
    struct Field {
        Check check;
        std::function<void()> takeBack;
        std::optional<QString> refused; ///< The text that was refused last, unless another one has been accepted since.
    };

    void settleWhenQuiet();
    void takeBackRefused();
    /// The field that has its window's focus, even if the window is not active; null if none has.
    [[nodiscard]] QWidget* focusedField() const;

    std::map<QWidget*, Field> m_fields;
    std::vector<QWidget*> m_waiting;
    std::pair<QWidget*, QString> m_judged; ///< The field that had the focus at the last leaveAll(), and its text then.
    bool m_settling = false;
};

/// Checks a date field that was left: rewrites a valid date as "DD-MM-YYYY" and returns it. Otherwise shows a message
/// and leaves the text as it is.
[[nodiscard]] std::optional<QDate> checkDate(EntryField& field, QDate today);

} // namespace lorvan
