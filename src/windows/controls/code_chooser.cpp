#include "controls/code_chooser.h"

#include "lists/row_delegate.h"
#include "look/theme.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace lorvan {
namespace {

constexpr int rowsShown = 14;

/// Selected with the cursor at the front, so that the beginning of a long text is visible.
void selectFromEnd(QLineEdit& field)
{
    const int length = static_cast<int>(field.text().length());
    field.setSelection(length, -length);
}

} // namespace

CodeChooser::CodeChooser(QWidget* parent)
    : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    setMaxVisibleItems(rowsShown);
    setMinimumContentsLength(8);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    auto* const list = new QListView(this);
    setView(list);
    list->setItemDelegate(new RowDelegate(list));
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &CodeChooser::noteEdited);
    connect(this, &QComboBox::activated, this, &CodeChooser::noteActivated);
    connect(&Theme::instance(), &Theme::changed, this, &CodeChooser::dress);
    dress();
}

void CodeChooser::dress()
{
    view()->setFont(Theme::instance().fixedFont());
}

void CodeChooser::setRows(const QStringList& rows)
{
    const QSignalBlocker silence(this);
    const QString shown = currentText();
    clear();
    addItems(rows);
    setCurrentIndex(-1);
    m_rowIsStale = false;
    showText(shown);
}

void CodeChooser::showText(const QString& text)
{
    Q_EMIT shown();
    const QSignalBlocker silence(this);
    m_shown = text;
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
    lineEdit()->home(false);
    if (hasFocus())
        selectFromEnd(*lineEdit());
}

void CodeChooser::setCurrentRow(int row)
{
    const QSignalBlocker silence(this);
    const QString shown = currentText();
    setCurrentIndex(row);
    m_rowIsStale = false;
    if (currentText() != shown)
        showText(shown);
}

void CodeChooser::showPopup()
{
    Q_EMIT shown();
    if (m_rowIsStale)
        setCurrentRow(-1);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view());
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + bar);
    QComboBox::showPopup();
}

void CodeChooser::noteEdited(const QString& text)
{
    m_shown = text;
    m_rowIsStale = true;
    Q_EMIT typed();
}

void CodeChooser::noteActivated(int row)
{
    // The toolkit also "activates" a row whose text happens to be in the field when the field is left.
    if (m_leaving)
        return;
    m_rowIsStale = false;
    showText(m_shown);
    Q_EMIT picked(row);
}

bool CodeChooser::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && leavesUndo(*static_cast<QKeyEvent*>(event), *lineEdit())) {
        event->ignore();
        return true;
    }
    return QComboBox::event(event);
}

bool CodeChooser::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonRelease)
        m_clickSelection.mouseReleased(*lineEdit());
    return QComboBox::eventFilter(watched, event);
}

void CodeChooser::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    if (isRealFocusChange(event->reason()))
        selectFromEnd(*lineEdit());
    m_clickSelection.focusGained(event->reason());
}

void CodeChooser::focusOutEvent(QFocusEvent* event)
{
    {
        const QScopedValueRollback guard(m_leaving, true);
        QComboBox::focusOutEvent(event);
    }
    if (isRealFocusChange(event->reason()) && !view()->isVisible()) // the open list takes the focus like anything else
        Q_EMIT left();
}

void CodeChooser::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event)) {
        event->accept();
        Q_EMIT enterPressed();
        return;
    }
    if (isAltTyping(*event)) {
        event->ignore();
        return;
    }
    if (m_rowIsStale && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        setCurrentRow(-1);
    QComboBox::keyPressEvent(event);
}

void CodeChooser::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace lorvan
