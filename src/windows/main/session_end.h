#pragma once

#include <QObject>

namespace lorvan {

/// Knows whether the desktop's session is ending, so that the program is to end with it and asks nothing.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    explicit SessionEnd(QObject* parent);

    /// True while the session asks its programs to save, and from the moment at which it has them quit.
    [[nodiscard]] bool isUnderWay() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_quitting = false;
};

} // namespace lorvan
