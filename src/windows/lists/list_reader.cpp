#include "lists/list_reader.h"

#include "look/accessible_role.h"
#include "look/style_painting.h"
#include "look/theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusFrame>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>

#include <optional>

namespace lorvan {
namespace {

constexpr int wheelNotch = 120; // eighths of a degree

class ReadingFrame : public QFocusFrame {
public:
    using QFocusFrame::QFocusFrame;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        paintPanel(painter, rect(), Qt::transparent, Theme::instance().colour(ColourRole::Accent), focusWidth);
    }
};

std::optional<QAbstractSlider::SliderAction> scrollBy(const QKeyEvent& event)
{
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_PageUp:
        return QAbstractSlider::SliderPageStepSub;
    case Qt::Key_PageDown:
        return QAbstractSlider::SliderPageStepAdd;
    case Qt::Key_Home:
        return QAbstractSlider::SliderToMinimum;
    case Qt::Key_End:
        return QAbstractSlider::SliderToMaximum;
    default:
        return std::nullopt;
    }
}

} // namespace

ListReader::ListReader(QWidget* page, QWidget* parent)
    : QWidget(parent)
    , m_page(page)
    , m_frame(new ReadingFrame(this))
{
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(page);
    m_frame->hide(); // otherwise it would be shown with its parent, around nothing
}

void ListReader::setLists(std::vector<QAbstractItemView*> lists)
{
    m_lists = std::move(lists);
    m_chosen = 0;
}

void ListReader::setReading(bool reading)
{
    m_page->setEnabled(!reading);
    setFocusPolicy(reading ? Qt::TabFocus : Qt::NoFocus);
    if (reading)
        setAccessibleRole(staticMetaObject, QAccessible::List);
    setAccessibleDescription(reading ? QStringLiteral("Μόνο για ανάγνωση") : QString());
    setAccessibleName(reading ? m_lists.at(m_chosen)->accessibleName() : QString());
}

void ListReader::choose(std::size_t list)
{
    m_chosen = list;
    setAccessibleName(m_lists.at(list)->accessibleName());
    m_frame->setWidget(hasFocus() ? m_lists.at(list) : nullptr);
}

void ListReader::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason)
        m_chosen = 0;
    else if (event->reason() == Qt::BacktabFocusReason)
        m_chosen = m_lists.size() - 1;
    choose(m_chosen);
}

void ListReader::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    m_frame->setWidget(nullptr);
}

bool ListReader::focusNextPrevChild(bool next)
{
    const bool isLast = m_chosen == (next ? m_lists.size() - 1 : 0);
    if (!hasFocus() || isLast)
        return QWidget::focusNextPrevChild(next);
    choose(next ? m_chosen + 1 : m_chosen - 1);
    return true;
}

void ListReader::keyPressEvent(QKeyEvent* event)
{
    const auto action = scrollBy(*event);
    if (action)
        m_lists.at(m_chosen)->verticalScrollBar()->triggerAction(*action);
    event->setAccepted(action.has_value());
}

QAbstractItemView* ListReader::listAt(QPoint position) const
{
    for (QAbstractItemView* const list : m_lists) {
        if (list->rect().contains(list->mapFrom(this, position)))
            return list;
    }
    return nullptr;
}

void ListReader::wheelEvent(QWheelEvent* event)
{
    const QAbstractItemView* const list = m_page->isEnabled() ? nullptr : listAt(event->position().toPoint());
    event->setAccepted(list);
    if (!list)
        return;
    m_turned += event->angleDelta().y() * QApplication::wheelScrollLines();
    QScrollBar& bar = *list->verticalScrollBar();
    bar.setValue(bar.value() - m_turned / wheelNotch * bar.singleStep());
    m_turned %= wheelNotch;
}

} // namespace lorvan
