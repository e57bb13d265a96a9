#pragma once

#include <QDeadlineTimer>
#include <QObject>
#include <QPoint>
#include <QTimer>

#include <optional>

class QWidget;

namespace lorvan {

/// Sees to it that a window opens inside its screen's work area, all of it and with its title bar, and in the middle if
/// that is asked for. A window manager may put a window elsewhere after it was shown, and tells late how wide its frame
/// is: so the place is looked at during the first second, as long as no mouse button is pressed. Later moves are the
/// user's, and stay.
class OpeningPlacement : public QObject {
    Q_OBJECT

public:
    /// The window's own, made at the first call.
    static OpeningPlacement& of(QWidget* window);

    void setCentred() { m_isCentred = true; }

    /// Puts a window that the user has not moved into its place again.
    void again();

    /// The window stays where it is from now on, as if the user had put it there.
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
