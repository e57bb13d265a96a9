#pragma once

#include "cashbook/month_grid.h"

#include <QFrame>

namespace lorvan {

/// The calendar that opens beside the date: a month with buttons for the months beside it and for today. Escape and a
/// click elsewhere close it; it deletes itself.
class DayCalendar : public QFrame {
    Q_OBJECT

public:
    DayCalendar(QDate shown, QDate today, MonthGrid::Reader reader, QWidget* parent);

    /// Opens below the widget, or above it where there is no room.
    void openAt(const QWidget& widget);

Q_SIGNALS:
    void chosen(QDate day); ///< The calendar is closed.

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* headRow(QDate today);

    MonthGrid* m_grid;
};

} // namespace lorvan
