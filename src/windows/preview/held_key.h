#pragma once

#include <QObject>

namespace lorvan {

/// Knows whether the key that was pressed last in any of the program's windows is still held down. A key that the
/// program did not see being let go counts as held until another one was.
class HeldKey : public QObject {
    Q_OBJECT

public:
    /// Watches from the first call on.
    static HeldKey& instance();

    [[nodiscard]] bool isHeld() const { return m_key != 0; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void released();

private:
    HeldKey();

    int m_key = 0; ///< 0 for none.
    quint32 m_scanCode = 0; ///< The same key may be another letter when it is let go.
};

} // namespace lorvan
