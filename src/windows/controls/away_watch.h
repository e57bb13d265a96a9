#pragma once

#include "platform/away_time.h"
#include "platform/clock.h"

#include <QObject>

class QWidget;

namespace lorvan {

/// Notices when the user comes back to a window that has not been active for a minute or longer.
class AwayWatch : public QObject {
    Q_OBJECT

public:
    AwayWatch(QWidget* window, Clock clock);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void returned(); ///< Emitted after the window has become active.

private:
    Clock m_clock;
    AwayTime m_away;
};

} // namespace lorvan
