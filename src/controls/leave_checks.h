#pragma once

#include <QObject>

#include <functional>
#include <map>
#include <vector>

class QWidget;

namespace lorvan {

/// Judges fields after the focus has left them. A check may open a message box, so it waits until the focus has settled
/// and no mouse button is down: a box opened in between would swallow the release of the button that was pressed.
class LeaveChecks : public QObject {
    Q_OBJECT

public:
    /// Returns false when what stands in the field was refused; the field then gets the focus back.
    using Check = std::function<bool()>;

    explicit LeaveChecks(QObject* parent);

    void add(QWidget* field, Check check);

    /// To be called when the focus leaves the field; its check follows.
    void left(QWidget* field);

    /// Runs the checks that are waiting, now. False when one refused.
    bool settle();

    /// Forgets the checks that are waiting: what stands in the fields is about to be judged in another way.
    void drop() { m_waiting.clear(); }

    /// As settle(), with the field that has the focus taken for left: its page is about to go.
    bool leaveAll();

private:
    void settleWhenQuiet();

    std::map<QWidget*, Check> m_checks;
    std::vector<QWidget*> m_waiting;
    bool m_settling = false;
};

} // namespace lorvan
