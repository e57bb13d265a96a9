#pragma once

#include <QObject>

namespace lorvan {

/// Knows whether the desktop session is ending, in which case the program ends with it and asks nothing.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    explicit SessionEnd(QObject* parent);

    /// True while the session asks its programs to save, and once it has told them to quit.
    [[nodiscard]] bool isUnderWay() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_quitting = false;
};

} // namespace lorvan
