#include "controls/action_gate.h"

#include "controls/guarded_window.h"
#include "look/busy_pointer.h"

#include <QAbstractButton>

#include <utility>

namespace lorvan {

ActionGate::ActionGate(QWidget* widget, Opened opened, Step begins, Step ends)
    : m_widget(widget)
    , m_opened(opened)
    , m_begins(std::move(begins))
    , m_ends(std::move(ends))
{
}

bool ActionGate::Conditions::areMet(const QAbstractButton& button) const
{
    return (!settled || settled()) && button.isVisible() && button.isEnabled() && (!mayChange || mayChange());
}

void ActionGate::connect(QAbstractButton* button, const Conditions& conditions, const Step& action) const
{
    QObject::connect(button, &QAbstractButton::clicked, m_widget, [=, this] {
        run([&] {
            if (conditions.areMet(*button))
                action();
        });
    });
}

void ActionGate::connectWindow(QAbstractButton* button, const Conditions& conditions, const Step& open) const
{
    QObject::connect(button, &QAbstractButton::clicked, m_widget,
        [=, this] { runWindow([&] { return conditions.areMet(*button); }, open); });
}

void ActionGate::runWindow(const Condition& mayOpen, const Step& open) const
{
    bool opens = false;
    run([&] { opens = mayOpen(); });
    if (!opens)
        return;
    guarded(m_widget->window(), open);
    m_ends();
}

void ActionGate::run(const Step& action) const
{
    if (isBusy())
        return;
    m_begins();
    const BusyPointer busy;
    guarded(m_widget->window(), action);
    m_ends();
}

void ActionGate::runQuick(const Step& step) const
{
    if (!isBusy())
        guarded(m_widget->window(), step);
}

bool ActionGate::isBusy() const
{
    const QCursor* const pointer = QGuiApplication::overrideCursor();
    return pointer && (m_opened == Opened::OnItsOwn || pointer->shape() == Qt::WaitCursor);
}

} // namespace lorvan
