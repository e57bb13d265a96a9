#pragma once

#include <QObject>

namespace lorvan {

/// Turns the system's requests to end (SIGTERM, SIGINT, SIGHUP: logging out, shutting down, a closed terminal) into an
/// event, so that the program can release its usage marker. Only one object per process.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);

    /// True as soon as one has arrived, before received().
    [[nodiscard]] static bool haveCome();

Q_SIGNALS:
    void received();
};

} // namespace lorvan
