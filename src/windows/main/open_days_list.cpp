#include "main/open_days_list.h"

#include "controls/command_button.h"
#include "lists/plain_list.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/date_text.h"

#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{380, 360};
constexpr int margin = 16;

std::vector<ListRow> rowsOf(const std::vector<QDate>& days)
{
    std::vector<ListRow> rows;
    for (const QDate day : days)
        rows.push_back({dateText(day) + QStringLiteral("  ") + entryWeekday(day), day.toJulianDay()});
    return rows;
}

} // namespace

OpenDaysList::OpenDaysList(const std::vector<QDate>& days, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("openDays"));
    setWindowTitle(QStringLiteral("Ανοικτές ημέρες"));
    setModal(true);
    auto* const heading = listHeading(QStringLiteral("Ημέρες που δεν έκλεισαν"));
    auto* const list = new PlainList(PlainList::Face::Desktop, this, RecordList::Moves::Select);
    list->setObjectName(QStringLiteral("days"));
    list->setAccessibleName(heading->text());
    list->setRows(rowsOf(days));
    list->setCurrentIndex(list->model()->index(0, 0));
    connect(list, &PlainList::clicked, this, &OpenDaysList::choose);
    connect(list, &PlainList::opened, this, &OpenDaysList::choose);
    auto* const go = new CommandButton({}, QStringLiteral("Μετάβαση"));
    go->setObjectName(QStringLiteral("go"));
    go->setToolTip(QStringLiteral("Δείχνει την ημέρα"));
    go->setLook(CommandButton::Look::Solid);
    go->setDefault(true); // Enter in the list presses it
    go->setEnabled(!days.empty());
    connect(go, &CommandButton::clicked, this, [this, list] { choose(list->currentIndex()); });

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->addWidget(heading);
    rows->addWidget(list, 1);
    rows->addWidget(go, 0, Qt::AlignRight);
    sizeWithin(this, firstSize);
    list->setFocus(Qt::OtherFocusReason);
}

void OpenDaysList::choose(const QModelIndex& day)
{
    if (!day.isValid() || m_chosen)
        return;
    m_chosen = QDate::fromJulianDay(day.data(Qt::UserRole).toLongLong());
    accept();
}

} // namespace lorvan
