#pragma once

#include "movements/calendar_days.h"

#include <QWidget>

#include <functional>

namespace lorvan {

/// The days of a month in six weeks: those with movements bold, closed ones with a lock, the day's balance in the
/// tooltip. Arrow keys move over the days, Page Up and Down over the months, with Shift over the years, Home and End to
/// the first and last of the month; Enter and a click choose. The current day is what assistive tools read.
class MonthGrid : public QWidget {
    Q_OBJECT

public:
    using Reader = std::function<std::vector<CalendarDay>(QDate first, QDate last)>;

    MonthGrid(QDate shown, QDate today, Reader reader, QWidget* parent);

    [[nodiscard]] QDate current() const { return m_current; }
    /// Moves to that day and reads its month; not to one outside the years 100 to 9999.
    void setCurrent(QDate day);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void monthChanged(QDate month);
    void chosen(QDate day);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void read();
    void tellCurrent();
    [[nodiscard]] QDate dayOfKey(const QKeyEvent& event) const;
    [[nodiscard]] const CalendarDay* dayAt(QPoint place) const;
    [[nodiscard]] QRect cell(int row, int column) const;
    void paintWeekdays(QPainter& painter) const;
    void paintDay(QPainter& painter, const QRect& area, const CalendarDay& day) const;

    const Reader m_read;
    const QDate m_shown; ///< On the cash page.
    const QDate m_today;
    QDate m_current;
    std::vector<CalendarDay> m_days; ///< Those of the page; without what is known of them if it could not be read.
};

} // namespace lorvan
