#include "printing/epilogh_omadvn.h"

#include "controls/guarded_window.h"
#include "lists/row_filter_field.h"
#include "lists/tick_list.h"
#include "look/busy_pointer.h"
#include "look/focus_rules.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr QSize firstSize{700, 330};
constexpr int margin = 16;
constexpr int betweenColumns = 12;

QString headingOf(std::size_t column)
{
    static const std::array headings{
        QStringLiteral("Αριστερή στήλη"), QStringLiteral("Μέση"), QStringLiteral("Δεξιά ")};
    return headings.at(column);
}

QString toolTipOf(std::size_t column)
{
    static const std::array toolTips{QStringLiteral("Επιλέξετε τις ομάδες που α τυπωθούν στην αριστερή στήλη"),
        QStringLiteral("Επιλέξετε τις ομάδες που α τυπωθούν στη μεσαία στήλη"),
        QStringLiteral("Επιλέξετε τις ομάδες που α τυπωθούν στη δεξιά  στήλη")};
    return toolTips.at(column);
}

QString countText(qsizetype count)
{
    if (count == 0)
        return QStringLiteral("Καμία επιλεγμένη");
    return count == 1 ? QStringLiteral("1 επιλεγμένη") : QStringLiteral("%1 επιλεγμένες").arg(count);
}

std::vector<ChosenGroup> chosenIn(const TickList& list)
{
    QModelIndexList rows = list.selectionModel()->selectedIndexes();
    std::sort(rows.begin(), rows.end());
    std::vector<ChosenGroup> chosen;
    for (const QModelIndex& row : rows)
        chosen.push_back({row.row(), row.data(Qt::UserRole).toInt(), row.data().toString()});
    return chosen;
}

} // namespace

EpiloghOmadvn::EpiloghOmadvn(const std::vector<CodeGroup>& groups, SettingsStore settings, QWidget* parent)
    : QDialog(parent)
    , m_settings(std::move(settings))
{
    setObjectName(QStringLiteral("EpiloghOmadvn"));
    setWindowTitle(QStringLiteral("Επιλογή ομάδων"));
    setModal(true);
    auto* const frame = new QGroupBox(QStringLiteral("Επιλογή ομάδων για τις στήλες"));
    auto* const columns = new QHBoxLayout;
    columns->setSpacing(betweenColumns);
    for (std::size_t c = 0; c < cardColumns; ++c)
        columns->addLayout(column(c), 1);
    auto* const rows = new QVBoxLayout(frame);
    rows->setContentsMargins(betweenColumns, betweenColumns / 2, betweenColumns, betweenColumns - 2);
    rows->setSpacing(betweenColumns / 2);
    QWidget* const filter = addFilter();
    rows->addWidget(filter, 0, Qt::AlignRight);
    rows->addLayout(columns, 1);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(margin, margin - 4, margin, margin);
    whole->addWidget(frame);
    // the filter last, so that Enter leads from list to list as ever
    chainTabOrder({m_lists[0], m_lists[1], m_lists[2], filter});
    sizeWithin(this, firstSize);
    const BusyPointer busy;
    fill(groups);
    m_isRestored = guarded(parent, [this] { restore(); });
    m_lists.front()->setFocus(Qt::OtherFocusReason);
}

QWidget* EpiloghOmadvn::addFilter()
{
    const auto* const first = new RowFilterField(QStringLiteral("filterGroups"), QStringLiteral("ομάδων"),
        QStringLiteral("Μένουν οι ομάδες με λέξη που αρχίζει έτσι, και οι επιλεγμένες. Με Esc φαίνονται όλες"),
        m_lists.front());
    for (std::size_t c = 1; c < cardColumns; ++c)
        new RowFilterField(first->field(), m_lists[c]);
    return first->field();
}

QVBoxLayout* EpiloghOmadvn::column(std::size_t column)
{
    auto* const heading = listHeading(headingOf(column));
    heading->setObjectName(QStringLiteral("Label1(%1)").arg(column));
    auto* const list = m_lists[column] = new TickList(PlainList::Face::FixedWidth);
    list->setObjectName(QStringLiteral("List1(%1)").arg(column));
    list->setAccessibleName(headingOf(column).trimmed());
    list->setToolTip(toolTipOf(column));
    list->setScrollsSideways();
    m_counts[column] = fieldCaption(QString());
    m_counts[column]->setObjectName(QStringLiteral("count(%1)").arg(column));
    connect(
        list->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, column] { showCount(column); });
    auto* const rows = new QVBoxLayout;
    rows->setSpacing(4);
    rows->addWidget(heading);
    rows->addWidget(list, 1);
    rows->addWidget(m_counts[column]);
    return rows;
}

void EpiloghOmadvn::fill(const std::vector<CodeGroup>& groups)
{
    std::vector<ListRow> rows;
    for (const CodeGroup& group : groups)
        rows.push_back({group.name, group.number});
    for (std::size_t c = 0; c < cardColumns; ++c) {
        m_lists[c]->setRows(rows);
        showCount(c);
    }
}

void EpiloghOmadvn::restore()
{
    for (std::size_t c = 0; c < cardColumns; ++c) {
        for (const int position : storedCardPositions(m_settings, c)) {
            const QModelIndex row = m_lists[c]->model()->index(position, 0); // invalid beyond the end
            m_lists[c]->selectionModel()->select(row, QItemSelectionModel::Select);
        }
    }
}

void EpiloghOmadvn::showCount(std::size_t column)
{
    m_counts[column]->setText(countText(m_lists[column]->selectionModel()->selectedIndexes().size()));
}

CardChoice EpiloghOmadvn::choice() const
{
    CardChoice choice;
    std::transform(
        m_lists.begin(), m_lists.end(), choice.begin(), [](const TickList* list) { return chosenIn(*list); });
    return choice;
}

void EpiloghOmadvn::done(int result)
{
    const CardChoice chosen = choice();
    const bool isEmpty = std::all_of(chosen.begin(), chosen.end(), [](const auto& groups) { return groups.empty(); });
    if (m_isRestored || !isEmpty) // a choice that could not be read is not erased
        guarded(this, [this, &chosen] { storeCardChoice(m_settings, chosen); });
    QDialog::done(result);
}

void EpiloghOmadvn::keyPressEvent(QKeyEvent* event)
{
    if (!isEnter(*event))
        QDialog::keyPressEvent(event);
    else if (focusWidget() == m_lists.back())
        accept();
    else
        focusNextChild();
}

} // namespace lorvan
