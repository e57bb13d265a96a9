#pragma once

#include "cashbook/cash_closing.h"
#include "platform/clock.h"

#include <QObject>
#include <QTimer>

namespace lorvan {

class Book;

/// Counts the days that were forgotten open (see forgottenDays()): when it is asked to, and again after midnight.
class OpenDaysWatch : public QObject {
    Q_OBJECT

public:
    /// `book` must outlive the object.
    OpenDaysWatch(Book& book, Clock clock);

    /// A book that cannot be read is looked at again a minute later.
    void look();
    void retire() { m_minute.stop(); }

Q_SIGNALS:
    void counted(const lorvan::OpenDays& open);

private:
    Book& m_book;
    Clock m_clock;
    QTimer m_minute;
    QDate m_lookedOn;
};

} // namespace lorvan
