#include "cashbook/day_keys.h"

#include "cashbook/day_list.h"
#include "controls/code_chooser.h"
#include "controls/entry_field.h"
#include "controls/key_binding.h"

#include <QKeyEvent>

#include <initializer_list>
#include <utility>
#include <vector>

namespace lorvan {
namespace {

const std::vector<std::pair<KeyUse, DayStep>> stepsInFields{{KeyUse::PreviousCashDay, DayStep::PreviousCashDay},
    {KeyUse::NextCashDay, DayStep::NextCashDay}, {KeyUse::PreviousMonth, DayStep::PreviousMonth},
    {KeyUse::NextMonth, DayStep::NextMonth}, {KeyUse::PreviousDay, DayStep::PreviousDay},
    {KeyUse::NextDay, DayStep::NextDay}, {KeyUse::Today, DayStep::Today}};
const std::vector<std::pair<KeyUse, DayStep>> stepsInList{{KeyUse::ListPreviousCashDay, DayStep::PreviousCashDay},
    {KeyUse::ListNextCashDay, DayStep::NextCashDay}, {KeyUse::Today, DayStep::Today}};

std::vector<KeyUse> usesOf(const std::vector<std::pair<KeyUse, DayStep>>& steps, std::vector<KeyUse> others)
{
    for (const auto& [use, step] : steps)
        others.push_back(use);
    return others;
}

} // namespace

DayKeys::DayKeys(EntryField* date, CodeChooser* chooser, DayList* list, QObject* parent)
    : QObject(parent)
    , m_date(date)
    , m_chooser(chooser)
    , m_list(list)
{
    for (QObject* const field : std::initializer_list<QObject*>{date, chooser, list})
        field->installEventFilter(this);
    showKeysInTip(date, usesOf(stepsInFields, {KeyUse::PreviewDay}));
    showKeysInTip(chooser, usesOf(stepsInFields, {KeyUse::GoToDayList}));
    showKeysInTip(list, usesOf(stepsInList, {KeyUse::OpenLine, KeyUse::Copy, KeyUse::CopyToToday}));
}

bool DayKeys::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::KeyPress && take(watched, static_cast<const QKeyEvent&>(*event));
}

bool DayKeys::take(QObject* watched, const QKeyEvent& event)
{
    if (watched == m_chooser && !m_chooser->currentText().isEmpty())
        return false;
    for (const auto& [use, step] : watched == m_list ? stepsInList : stepsInFields) {
        if (asksFor(event, use)) {
            Q_EMIT stepAsked(step);
            return true;
        }
    }
    if (watched == m_date && asksFor(event, KeyUse::OpenCalendar)) {
        Q_EMIT calendarAsked();
        return true;
    }
    if (watched == m_chooser && asksFor(event, KeyUse::GoToDayList)) {
        Q_EMIT listAsked();
        return true;
    }
    return false;
}

} // namespace lorvan
