#include "controls/leave_checks.h"

#include "controls/entry_field.h"
#include "look/focus_rules.h"
#include "look/message_window.h"
#include "platform/date_text.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <utility>

namespace lorvan {

LeaveChecks::LeaveChecks(QObject* parent)
    : QObject(parent)
{
    connect(qApp, &QApplication::focusChanged, this, &LeaveChecks::settleWhenQuiet);
}

void LeaveChecks::add(QWidget* field, Check check, std::function<void()> takeBack)
{
    m_fields[field] = {std::move(check), std::move(takeBack), {}};
}

void LeaveChecks::left(QWidget* field)
{
    const bool judgedAlready = std::exchange(m_judged, {}) == std::pair(field, textOf(*field));
    if (!m_settling && !judgedAlready)
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

void LeaveChecks::forget(QWidget* field)
{
    m_waiting.erase(std::remove(m_waiting.begin(), m_waiting.end(), field), m_waiting.end());
    m_fields.at(field).refused.reset();
}

bool LeaveChecks::leaveAll()
{
    QWidget* const focused = focusedField();
    if (focused)
        left(focused);
    takeBackRefused();
    if (!settle())
        return false;
    if (focused && focused == focusedField())
        m_judged = {focused, textOf(*focused)}; // it loses the focus with its page
    return true;
}

bool LeaveChecks::settleFocused()
{
    if (QWidget* const focused = focusedField())
        left(focused);
    return settle();
}

QWidget* LeaveChecks::focusedField() const
{
    for (const auto& [widget, field] : m_fields) {
        if (widget->isVisible() && widget->window()->focusWidget() == widget)
            return widget;
    }
    return nullptr;
}

void LeaveChecks::takeBackRefused()
{
    const auto fields = m_waiting;
    for (QWidget* const waiting : fields) {
        const Field& field = m_fields.at(waiting);
        if (!field.refused || textOf(*waiting) != field.refused)
            continue;
        if (field.takeBack)
            field.takeBack();
        forget(waiting);
    }
}

bool LeaveChecks::settle()
{
    if (m_settling)
        return true;
    const QScopedValueRollback settling(m_settling, true);
    const auto fields = std::exchange(m_waiting, {});
    for (QWidget* const left : fields) {
        Field& field = m_fields.at(left);
        field.refused.reset();
        if (!field.check()) {
            field.refused = textOf(*left);
            goBackTo(*left);
            return false;
        }
    }
    return true;
}

std::optional<QDate> checkDate(EntryField& field, QDate today)
{
    const auto date = readDate(field.text(), today);
    if (date)
        field.setText(dateText(*date));
    else
        showMessage(field.window(), QMessageBox::Warning, QStringLiteral("Λάθος ημερομηνία"),
            QStringLiteral("Η εισαγωγή της ημερομηνίας είναι λάθος"));
    return date;
}

} // namespace lorvan
