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

/// Judges fields after the focus has left them. A check may open a message box, so it waits until the focus has settled
/// and no mouse button is down: a box opened in between would swallow the release of the button that was pressed.
class LeaveChecks : public QObject {
    Q_OBJECT

public:
    /// Returns false when what stands in the field was refused; the field then gets the focus back.
    using Check = std::function<bool()>;

    explicit LeaveChecks(QObject* parent);

    /// `takeBack` puts back what stood in the field before a refused text, where the field must not keep it.
    void add(QWidget* field, Check check, std::function<void()> takeBack = {});

    /// To be called when the focus leaves the field; its check follows.
    void left(QWidget* field);

    /// Runs the checks that are waiting, now. False when one refused.
    bool settle();

    /// Forgets the checks that are waiting: what stands in the fields is about to be judged in another way.
    void drop() { m_waiting.clear(); }

    /// Forgets that this field was left, and what was refused in it.
    void forget(QWidget* field);

    /// As settle(), with the field that has the focus taken for left: its page is about to go. What was refused before
    /// and is still there keeps nobody on the page: it is taken back instead.
    bool leaveAll();

private:
    struct Field {
        Check check;
        std::function<void()> takeBack;
        std::optional<QString> refused; ///< The text that was refused last, unless another has passed since.
    };

    void settleWhenQuiet();
    void takeBackRefused();
    /// The field that has its window's focus, also while the window is not the active one; null where none has.
    [[nodiscard]] QWidget* focusedField() const;

    std::map<QWidget*, Field> m_fields;
    std::vector<QWidget*> m_waiting;
    std::pair<QWidget*, QString> m_judged; ///< The field that had the focus at the last leaveAll(), and its text then.
    bool m_settling = false;
};

/// Judges a date field that was left: rewrites a valid date as "DD-MM-YYYY" and returns it. Anything else gets its
/// message and stays as it is.
[[nodiscard]] std::optional<QDate> checkDate(EntryField& field, QDate today);

} // namespace lorvan
