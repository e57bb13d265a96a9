#include "lists/row_filter_field.h"

#include "lists/plain_list.h"
#include "platform/row_filter.h"

#include <QLineEdit>
#include <QShortcut>

namespace lorvan {
namespace {

constexpr int fieldWidth = 132;

QShortcut* keyIn(QLineEdit* field, Qt::Key key)
{
    auto* const shortcut = new QShortcut(key, field);
    shortcut->setContext(Qt::WidgetShortcut);
    return shortcut;
}

QLineEdit* newField(const QString& name, const QString& what, const QString& tip)
{
    auto* const field = new QLineEdit;
    field->setObjectName(name);
    field->setPlaceholderText(QStringLiteral("Εύρεση"));
    field->setAccessibleName(QStringLiteral("Εύρεση ") + what);
    field->setToolTip(tip);
    field->setMaximumWidth(fieldWidth);
    QShortcut* const escape = keyIn(field, Qt::Key_Escape); // an empty field leaves it to the window
    escape->setEnabled(false);
    QObject::connect(escape, &QShortcut::activated, field, &QLineEdit::clear);
    QObject::connect(
        field, &QLineEdit::textChanged, escape, [escape](const QString& text) { escape->setEnabled(!text.isEmpty()); });
    return field;
}

} // namespace

RowFilterField::RowFilterField(const QString& name, const QString& what, const QString& tip, PlainList* list)
    : RowFilterField(newField(name, what, tip), list)
{
    connect(
        keyIn(m_field, Qt::Key_Down), &QShortcut::activated, list, [list] { list->setFocus(Qt::OtherFocusReason); });
}

RowFilterField::RowFilterField(QLineEdit* field, PlainList* list)
    : QObject(field)
    , m_field(field)
    , m_list(list)
{
    connect(field, &QLineEdit::textChanged, this, &RowFilterField::apply);
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &RowFilterField::showSelected);
}

void RowFilterField::apply()
{
    const QAbstractItemModel& rows = *m_list->model();
    QStringList texts;
    for (int row = 0; row < rows.rowCount(); ++row)
        texts += rows.index(row, 0).data().toString();
    const std::vector<bool> shown = rowsThatMatch(texts, m_field->text());
    for (int row = 0; row < rows.rowCount(); ++row) {
        const bool isSelected = m_list->selectionModel()->isSelected(rows.index(row, 0));
        m_list->setRowHidden(row, !shown[static_cast<std::size_t>(row)] && !isSelected);
    }
}

/// A row can be selected from elsewhere.
void RowFilterField::showSelected()
{
    for (const QModelIndex& index : m_list->selectionModel()->selectedIndexes())
        m_list->setRowHidden(index.row(), false);
}

} // namespace lorvan
