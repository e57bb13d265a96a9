#include "printing/code_drop_down.h"

#include "look/focus_rules.h"
#include "printing/code_list_view.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QStandardItemModel>
#include <QWheelEvent>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int linesShown = 14;
constexpr int besideText = 28; ///< Insets of a line, frame of the list.

} // namespace

CodeDropDown::CodeDropDown(QWidget* parent)
    : QComboBox(parent)
{
    setMaxVisibleItems(linesShown);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon); // otherwise every line is measured
    setView(new CodeListView(this));
}

void CodeDropDown::setCodes(const std::vector<CodeBox>& codes)
{
    auto* const lines = new QStandardItemModel(static_cast<int>(codes.size()), 1, this);
    for (int row = 0; row < lines->rowCount(); ++row) {
        const CodeBox& code = codes[static_cast<std::size_t>(row)];
        auto* const line = new QStandardItem(code.text);
        line->setData(code.tag.toInt(), Qt::UserRole);
        lines->setItem(row, line);
    }
    setModel(lines);
    widenList();
}

void CodeDropDown::widenList()
{
    int widest = 0;
    for (int row = 0; row < count(); ++row)
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(row)));
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, view());
    view()->setMinimumWidth(std::min(widest + besideText + bar, screen()->availableSize().width()));
}

void CodeDropDown::openAt(const CodeBox& box)
{
    bool isCode = false;
    const int code = box.tag.toInt(&isCode);
    setCurrentIndex(isCode ? findData(code) : -1);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
    showPopup();
}

void CodeDropDown::showPopup()
{
    QComboBox::showPopup();
    view()->scrollTo(view()->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void CodeDropDown::hidePopup()
{
    QComboBox::hidePopup();
    // The list closes just before it reports its choice.
    QMetaObject::invokeMethod(this, &CodeDropDown::dismissWhenClosed, Qt::QueuedConnection);
}

void CodeDropDown::dismissWhenClosed()
{
    if (isVisible() && !view()->isVisible())
        Q_EMIT dismissed();
}

bool CodeDropDown::focusNextPrevChild(bool next)
{
    if (!isVisible())
        return QComboBox::focusNextPrevChild(next);
    Q_EMIT dismissed();
    return true;
}

void CodeDropDown::focusOutEvent(QFocusEvent* event)
{
    QComboBox::focusOutEvent(event);
    if (isRealFocusChange(event->reason()))
        dismissWhenClosed();
}

void CodeDropDown::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel))
        Q_EMIT dismissed();
    else
        QComboBox::keyPressEvent(event);
}

void CodeDropDown::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace lorvan
