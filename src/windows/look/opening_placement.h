#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>

class QWidget;

namespace lorvan {

/// Makes sure that a window opens completely inside its screen's work area, title bar included, and in the middle if
/// requested. A window manager may move a window after it has been shown, and is slow to report the width of its frame:
/// so the position is checked during the first second, as long as no mouse button is pressed. Later moves are made by
/// the user, and are respected.
class OpeningPlacement : public QObject {
    Q_OBJECT

public:
    /// The window's own object, made at the first call.
    static OpeningPlacement& of(QWidget* window);

    void setCentred() { m_isCentred = true; }

    /// Puts the window back into place, unless the user has moved it.
    void again();

    /// From now on the window stays where it is, as if the user had put it there.
    void end();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit OpeningPlacement(QWidget* window);

    void begin();
    void watch();
    void place();

    QWidget* m_window;
    QTimer m_watch;
    QDeadlineTimer m_opening;
    std::optional<QPoint> m_place; ///< Where the window was put.
    bool m_isCentred = false;
    bool m_isUsers = false; ///< The user has moved it.
};

} // namespace lorvan
