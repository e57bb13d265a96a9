#pragma once

#include "marker/usage_marker.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

namespace lorvan {

/// Looks at the usage marker every few seconds, without locking it and in a thread of its own, so that a share that
/// does not respond never blocks the user's typing. A failed look reports nothing.
class MarkerWatch : public QObject {
    Q_OBJECT

public:
    explicit MarkerWatch(QString markerPath);
    ~MarkerWatch() override;

    /// The next look follows in a few seconds. The result of one that is under way is discarded, since the caller knows
    /// something newer.
    void start();
    void stop();

Q_SIGNALS:
    void seen(const std::optional<lorvan::MarkerHolder>& holder);

private:
    void look();
    void end(int round, bool isKnown, const std::optional<MarkerHolder>& holder);

    QString m_path;
    QTimer m_pause;
    QThreadPool m_thread;
    int m_round = 0;
};

} // namespace lorvan
