#include "cashbook/code_offer_list.h"

#include "controls/code_chooser.h"
#include "look/focus_rules.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int mostRows = 10;
constexpr int belowField = 2;
constexpr int sideMargin = 8; // to the edge of the window

} // namespace

CodeOfferList::CodeOfferList(CodeChooser* chooser)
    : PlainList(Face::FixedWidth, chooser->window(), Moves::Select)
    , m_chooser(chooser)
{
    setObjectName(QStringLiteral("codeOffers"));
    setAccessibleName(QStringLiteral("Κωδικοί που αρχίζουν έτσι"));
    setFocusPolicy(Qt::NoFocus); // so that a click leaves the keyboard in the chooser
    hide();
    chooser->installEventFilter(this);
    connect(chooser, &CodeChooser::left, this, &QWidget::hide);
    connect(this, &QListView::clicked, this, &CodeOfferList::pickRow);
}

void CodeOfferList::offer(const std::vector<ListRow>& rows)
{
    setRows(rows);
    setVisible(!rows.empty() && m_chooser->hasFocus());
    if (isVisible())
        place();
}

/// Below the chooser, above everything else of its window, as wide as the longest row if there is room.
void CodeOfferList::place()
{
    QWidget* const window = m_chooser->window();
    if (parentWidget() != window)
        setParent(window);
    window->installEventFilter(this);
    const QPoint corner = m_chooser->mapTo(window, QPoint(0, m_chooser->height() + belowField));
    const int frame = 2 * frameWidth();
    const int rows = std::min(model()->rowCount(), mostRows);
    const int wanted = rows * rowHeight() + frame + viewportMargins().top() + viewportMargins().bottom();
    int text = 0;
    for (int row = 0; row < model()->rowCount(); ++row)
        text = std::max(text, fontMetrics().horizontalAdvance(model()->index(row, 0).data().toString()));
    const int width = text + 2 * textInset() + frame + verticalScrollBar()->sizeHint().width();
    setGeometry(corner.x(), corner.y(),
        std::min(std::max(width, m_chooser->width()), window->width() - corner.x() - sideMargin),
        std::min(wanted, window->height() - corner.y() - sideMargin));
    show();
    raise();
}

bool CodeOfferList::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_chooser->window() && event->type() == QEvent::Resize)
        hide();
    if (!isVisible() || watched != m_chooser)
        return PlainList::eventFilter(watched, event); // the base class watches its own parts
    const bool isEscape = (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress)
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isEscape && event->type() == QEvent::ShortcutOverride) {
        event->accept(); // it closes the list and nothing else
        return true;
    }
    return event->type() == QEvent::KeyPress && takeFieldKey(static_cast<const QKeyEvent&>(*event));
}

bool CodeOfferList::takeFieldKey(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Escape)
        hide();
    else if (event.key() == Qt::Key_Down && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        enterList();
    else
        return false;
    return true;
}

/// A reason for which the chooser does not count as left.
void CodeOfferList::enterList()
{
    setFocus(Qt::PopupFocusReason);
    selectRow(model()->index(0, 0));
}

void CodeOfferList::goBack()
{
    m_chooser->setFocus(Qt::PopupFocusReason);
}

void CodeOfferList::pickRow(const QModelIndex& row)
{
    if (!row.isValid())
        return;
    const qint64 chosen = row.data(Qt::UserRole).toLongLong();
    goBack();
    hide();
    Q_EMIT picked(chosen);
}

void CodeOfferList::keyPressEvent(QKeyEvent* event)
{
    const bool isUpFromFirst = event->key() == Qt::Key_Up && currentIndex().row() == 0;
    if (isEnter(*event)) {
        pickRow(currentIndex());
    } else if (event->key() == Qt::Key_Down || (event->key() == Qt::Key_Up && !isUpFromFirst)
        || event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        PlainList::keyPressEvent(event);
    } else {
        clearSelection();
        goBack();
        if (event->key() == Qt::Key_Escape)
            hide();
        else if (!isUpFromFirst)
            QCoreApplication::sendEvent(m_chooser, event);
    }
    event->accept();
}

/// Left by something else than its keys, the list has left the chooser too.
void CodeOfferList::focusOutEvent(QFocusEvent* event)
{
    PlainList::focusOutEvent(event);
    if (isRealFocusChange(event->reason())) {
        hide();
        Q_EMIT m_chooser->left();
    }
}

} // namespace lorvan
