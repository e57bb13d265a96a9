#pragma once

#include <functional>

class QAbstractButton;
class QWidget;

namespace lorvan {

/// The way into what the user asks for with a button, a list, a menu or a key. One action runs at a time in the whole
/// program: what is asked for while an override pointer is shown, whoever shows it, is ignored. While an action runs
/// the gate shows the busy pointer. A failure is told over the window and goes no further.
class ActionGate {
public:
    using Step = std::function<void()>;
    using Condition = std::function<bool()>;

    /// What is asked before a button's action, in this order. One that refuses has told the user why.
    struct Conditions {
        Condition settled = {}; ///< Judges what was left in the fields and not judged yet.
        Condition mayChange = {}; ///< Whether data may be changed now.

        [[nodiscard]] bool areMet(const QAbstractButton& button) const;
    };

    enum class Opened {
        OnItsOwn,
        InAnAction, ///< Which has the ordinary pointer meanwhile; then only the busy one keeps anything out.
    };

    /// `widget` is the window or lies in it. `begins` is called before each action, `ends` after it, also when it
    /// failed.
    explicit ActionGate(
        QWidget* widget, Opened opened = Opened::OnItsOwn, Step begins = [] {}, Step ends = [] {});

    /// The button's clicks run the action, unless settling has hidden or disabled it under the mouse.
    void connect(QAbstractButton* button, const Conditions& conditions, const Step& action) const;
    /// The same for a window whose buttons run actions of their own: it opens when the busy pointer is gone again.
    void connectWindow(QAbstractButton* button, const Conditions& conditions, const Step& open) const;

    void run(const Step& action) const;
    /// Without the busy pointer: for what is quick, and keeps nothing else out.
    void runQuick(const Step& step) const;

    /// Slots that do so, for the signals of lists and keys.
    template <typename Owner, typename... Values> auto action(Owner* owner, void (Owner::*step)(Values...)) const
    {
        return [=, this](Values... values) { run([&] { (owner->*step)(values...); }); };
    }
    template <typename Owner, typename... Values> auto quick(Owner* owner, void (Owner::*step)(Values...)) const
    {
        return [=, this](Values... values) { runQuick([&] { (owner->*step)(values...); }); };
    }

private:
    [[nodiscard]] bool isBusy() const;

    QWidget* const m_widget;
    const Opened m_opened;
    const Step m_begins;
    const Step m_ends;
};

} // namespace lorvan
