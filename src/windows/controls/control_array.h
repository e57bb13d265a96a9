#pragma once

#include <QObject>
#include <QString>

#include <map>

namespace lorvan {

/// Controls with a common name and different indices: `Text1(0)`, `Command1(8)`. The controls belong to their windows;
/// the array is only for finding them.
template <typename Control> class ControlArray {
public:
    explicit ControlArray(QString name)
        : m_name(std::move(name))
    {
    }

    /// Sets the control's object name, such as `Text1(0)`, and returns the control.
    template <typename Derived> Derived* add(int index, Derived* control)
    {
        control->setObjectName(QStringLiteral("%1(%2)").arg(m_name).arg(index));
        m_controls[index] = control;
        return control;
    }

    /// The control must have been added.
    [[nodiscard]] Control* operator[](int index) const { return m_controls.at(index); }

    [[nodiscard]] auto begin() const { return m_controls.begin(); } ///< Pairs of index and control, by index.
    [[nodiscard]] auto end() const { return m_controls.end(); }

private:
    QString m_name;
    std::map<int, Control*> m_controls;
};

} // namespace lorvan
