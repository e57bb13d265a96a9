#include "controls/leave_checks.h"

#include "controls/focus_rules.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <utility>

namespace lorvan {

LeaveChecks::LeaveChecks(QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, &LeaveChecks::settleWhenQuiet);
}

void LeaveChecks::add(QWidget* field, Check check)
{
    m_checks[field] = std::move(check);
}

void LeaveChecks::left(QWidget* field)
{
    if (!m_settling)
        m_waiting.push_back(field);
}

void LeaveChecks::settleWhenQuiet()
{
    using namespace std::chrono_literals;
    if (m_waiting.empty() || m_settling)
        return;
    if (QGuiApplication::mouseButtons() == Qt::NoButton && !QApplication::activeModalWidget())
        settle();
    else
        QTimer::singleShot(10ms, this, &LeaveChecks::settleWhenQuiet);
}

bool LeaveChecks::leaveAll()
{
    QWidget* const focused = QApplication::focusWidget();
    if (m_checks.count(focused) != 0)
        left(focused);
    return settle();
}

bool LeaveChecks::settle()
{
    if (m_settling)
        return true;
    const QScopedValueRollback settling(m_settling, true);
    const auto fields = std::exchange(m_waiting, {});
    for (QWidget* const field : fields) {
        if (!m_checks.at(field)()) {
            goBackTo(*field);
            return false;
        }
    }
    return true;
}

} // namespace lorvan
