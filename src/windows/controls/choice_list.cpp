#include "controls/choice_list.h"

#include "controls/command_button.h"
#include "lists/row_filter_field.h"
#include "lists/tick_list.h"
#include "look/focus_rules.h"
#include "look/themed_label.h"
#include "platform/search_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int betweenRows = 4;
constexpr int fieldWidth = 132;
constexpr int narrowestField = 72;

enum class Place { WordStart, Anywhere };

bool holds(const SearchText& wanted, const QString& row, Place place)
{
    return place == Place::WordStart ? wanted.beginsWordIn(row) : wanted.indexIn(row) >= 0;
}

bool isTyped(const QKeyEvent& event)
{
    const bool isCommand = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    return !isCommand && !event.text().isEmpty() && event.text().at(0).isPrint() && event.text() != QStringLiteral(" ");
}

} // namespace

ChoiceList::ChoiceList(PlainList::Face face, const ChoiceTexts& texts, QWidget* parent)
    : QWidget(parent)
    , m_texts(texts)
    , m_list(new TickList(face, this))
    , m_field(new QLineEdit(this))
    , m_filter(new RowFilterField(m_field, m_list))
    , m_count(new ThemedLabel(QString(), ColourRole::Muted, 0.9))
{
    m_list->setAccessibleName(texts.heading);
    m_list->setEmptyText(texts.empty);
    m_list->installEventFilter(this);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(betweenRows);
    rows->addLayout(headRow());
    rows->addWidget(m_list, 1);
    m_count->setWordWrap(true); // in a narrow window
    rows->addLayout(footRow());
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ChoiceList::showCount);
    showCount();
}

QHBoxLayout* ChoiceList::headRow()
{
    m_field->setFixedHeight(headHeight);
    m_field->setMinimumWidth(narrowestField);
    m_field->setMaximumWidth(fieldWidth);
    m_field->setPlaceholderText(QStringLiteral("Εύρεση"));
    m_field->setAccessibleName(QStringLiteral("Εύρεση: ") + m_texts.heading);
    m_field->setToolTip(
        QStringLiteral("Γράψτε την αρχή μιας λέξης ή ενός αριθμού· το Enter επιλέγει, τα βέλη πάνε στην επόμενη"));
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textEdited, this, &ChoiceList::find);
    auto* const row = new QHBoxLayout;
    row->setSpacing(2 * betweenRows);
    row->addWidget(listHeading(m_texts.heading));
    row->addStretch(1);
    row->addWidget(m_field, 2);
    return row;
}

QHBoxLayout* ChoiceList::footRow()
{
    m_all = smallButton(m_texts.all);
    m_none = smallButton(m_texts.none);
    connect(m_all, &CommandButton::clicked, this, [this] { chooseAll(true); });
    connect(m_none, &CommandButton::clicked, this, [this] { chooseAll(false); });
    auto* const row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_count, 1);
    row->addWidget(m_all);
    row->addWidget(m_none);
    return row;
}

CommandButton* ChoiceList::smallButton(const QString& caption)
{
    auto* const button = new CommandButton({}, caption, this);
    button->setSmall(true);
    button->setFrameless(true);
    button->setAccessibleName(caption + QStringLiteral(": ") + m_texts.heading);
    return button;
}

void ChoiceList::setObjectNames(const QString& list, int number)
{
    m_list->setObjectName(list);
    m_field->setObjectName(QStringLiteral("findRow(%1)").arg(number));
    m_all->setObjectName(QStringLiteral("chooseAll(%1)").arg(number));
    m_none->setObjectName(QStringLiteral("chooseNone(%1)").arg(number));
    m_count->setObjectName(QStringLiteral("chosenCount(%1)").arg(number));
}

void ChoiceList::setRows(const std::vector<ListRow>& rows)
{
    m_field->clear();
    m_list->setRows(rows);
    m_field->setEnabled(!rows.empty());
    m_all->setEnabled(!rows.empty());
    showCount();
}

std::vector<qint64> ChoiceList::chosenData() const
{
    return m_list->chosenData();
}

QWidgetList ChoiceList::controls() const
{
    return {m_field, m_list, m_all, m_none};
}

// Keys

bool ChoiceList::eventFilter(QObject* watched, QEvent* event)
{
    const bool isField = watched == m_field;
    if (isField && event->type() == QEvent::FocusIn)
        m_list->setCurrentMarked(true);
    if (isField && event->type() == QEvent::FocusOut && isRealFocusChange(static_cast<QFocusEvent*>(event)->reason()))
        m_list->setCurrentMarked(false);
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    return isField ? takeFieldKey(key) : takeListKey(key);
}

bool ChoiceList::takeListKey(const QKeyEvent& event)
{
    if (!isTyped(event))
        return false;
    m_field->setFocus(Qt::OtherFocusReason);
    m_field->setText(event.text());
    find(event.text());
    return true;
}

bool ChoiceList::takeFieldKey(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)
        findNext(event.key() == Qt::Key_Down ? 1 : -1);
    else if (isEnter(event))
        toggleFound();
    else if (event.key() == Qt::Key_Escape)
        leaveSearch();
    else
        return false;
    return true;
}

// Finding

int ChoiceList::rowWith(const QString& text, int first, int step) const
{
    const SearchText wanted(text);
    const int count = m_list->model()->rowCount();
    for (const Place place : {Place::WordStart, Place::Anywhere}) {
        for (int i = 0; i < count; ++i) {
            const int row = (first + i * step + count * (i + 1)) % count;
            if (holds(wanted, m_list->model()->index(row, 0).data().toString(), place))
                return row;
        }
    }
    return -1;
}

void ChoiceList::find(const QString& text)
{
    showCount();
    if (text.trimmed().isEmpty())
        return;
    const int row = rowWith(text.trimmed(), std::max(m_list->currentIndex().row(), 0), 1);
    if (row < 0)
        return showNotFound(text.trimmed());
    goTo(row);
}

/// As much of the text as fits: the page must not grow with it.
void ChoiceList::showNotFound(const QString& text)
{
    const QString answer = QStringLiteral("Δεν βρέθηκε: ") + text;
    m_count->setText(m_count->fontMetrics().elidedText(answer, Qt::ElideRight, m_count->width()));
}

void ChoiceList::findNext(int step)
{
    const int rows = m_list->model()->rowCount();
    if (rows == 0)
        return;
    const int beside = m_list->currentIndex().isValid() ? m_list->currentIndex().row() + step : 0;
    const QString text = m_field->text().trimmed();
    const int row = text.isEmpty() ? qBound(0, beside, rows - 1) : rowWith(text, (beside + rows) % rows, step);
    if (row < 0)
        return;
    goTo(row);
}

void ChoiceList::goTo(int row)
{
    m_list->selectionModel()->setCurrentIndex(m_list->model()->index(row, 0), QItemSelectionModel::NoUpdate);
    m_list->scrollTo(m_list->currentIndex());
}

void ChoiceList::leaveSearch()
{
    m_field->clear();
    showCount();
    m_list->setFocus(Qt::OtherFocusReason);
}

void ChoiceList::toggleFound()
{
    const QModelIndex current = m_list->currentIndex();
    const QString text = m_field->text().trimmed();
    if (current.isValid() && (text.isEmpty() || holds(SearchText(text), current.data().toString(), Place::Anywhere)))
        m_list->selectionModel()->select(current, QItemSelectionModel::Toggle);
    m_field->selectAll();
}

// The choice

void ChoiceList::chooseAll(bool chosen)
{
    if (chosen)
        chooseShown();
    else
        m_list->clearSelection();
    m_filter->apply();
}

void ChoiceList::chooseShown()
{
    for (int row = 0; row < m_list->model()->rowCount(); ++row) {
        if (!m_list->isRowHidden(row))
            m_list->selectionModel()->select(m_list->model()->index(row, 0), QItemSelectionModel::Select);
    }
}

void ChoiceList::showCount()
{
    const qsizetype chosen = m_list->selectionModel()->selectedIndexes().size();
    const QString& text = chosen == 0 ? m_texts.noneChosen : chosen == 1 ? m_texts.oneChosen : m_texts.severalChosen;
    m_count->setText(chosen == 0 ? text : text.arg(chosen).arg(m_list->model()->rowCount()));
    m_none->setEnabled(chosen > 0);
}

} // namespace lorvan
