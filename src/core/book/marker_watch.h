#pragma once

#include "book/usage_marker.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

namespace lorvan {

/// Looks at the usage marker every few seconds, without locking it and on a thread of its own: a share that does not
/// answer stops nobody's typing. A look that fails tells nothing.
class MarkerWatch : public QObject {
    Q_OBJECT

public:
    explicit MarkerWatch(QString markerPath);
    ~MarkerWatch() override;

    /// The next look comes in a few seconds; one that is under way is not told any more, since more is known by now.
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
