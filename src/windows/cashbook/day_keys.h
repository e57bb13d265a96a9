#pragma once

#include "movements/day_steps.h"

#include <QObject>

class QKeyEvent;

namespace lorvan {

class CodeChooser;
class DayList;
class EntryField;
enum class KeyUse;

/// The keys that lead from one day to another: in the date, in the code while it is empty and its list is shut, and in
/// the list of the day's movements.
class DayKeys : public QObject {
    Q_OBJECT

public:
    DayKeys(EntryField* date, CodeChooser* chooser, DayList* list, QObject* parent);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void stepAsked(lorvan::DayStep step);
    void calendarAsked();
    void listAsked(); ///< Up in the empty code.

private:
    bool take(QObject* watched, const QKeyEvent& event);

    EntryField* m_date;
    CodeChooser* m_chooser;
    DayList* m_list;
};

} // namespace lorvan
