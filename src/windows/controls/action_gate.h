#pragma once

#include <functional>

class QAbstractButton;
class QWidget;

namespace lorvan {

/// Runs what the user asks for with a button, a list, a menu or a key. One action runs at a time in the whole program:
/// while anybody has set an override pointer, everything is ignored. While an action runs, the gate shows the busy
/// pointer; if the action fails, it shows a message over the window.
class ActionGate {
public:
    using Step = std::function<void()>;
    using Condition = std::function<bool()>;

    /// Checked before a button's action, in this order. A condition that returns false has told the user why.
    struct Conditions {
        Condition settled = {}; ///< Checks the fields that were left and have not been checked yet.
        Condition mayChange = {}; ///< Whether data may be changed now.

        [[nodiscard]] bool areMet(const QAbstractButton& button) const;
    };

    enum class Opened {
        OnItsOwn,
        InAnAction, ///< That action shows the ordinary pointer meanwhile, so only the busy pointer counts here.
    };

    /// `widget` is the window or a part of it. `begins` is called before each action, `ends` after it, even if it
    /// fails.
    explicit ActionGate(
        QWidget* widget, Opened opened = Opened::OnItsOwn, Step begins = [] {}, Step ends = [] {});

    /// A click on the button runs the action, unless checking the fields has hidden or disabled the button.
    void connect(QAbstractButton* button, const Conditions& conditions, const Step& action) const;
    /// The same for a button that opens a window with a gate of its own: `open` runs once the busy pointer is gone.
    void connectWindow(QAbstractButton* button, const Conditions& conditions, const Step& open) const;

    void run(const Step& action) const;
    /// As connectWindow() does it for a button.
    void runWindow(const Condition& mayOpen, const Step& open) const;
    /// The same without the busy pointer, for quick steps.
    void runQuick(const Step& step) const;

    /// Slots that call run() and runQuick(), for the signals of lists and keys.
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
