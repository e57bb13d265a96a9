#include "preview/page_view_accessible.h"

#include "preview/page_view.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace lorvan {
namespace {

/// The current page, as text without caret and selection.
class PageReading : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit PageReading(PageView* view)
        : QAccessibleWidget(view, QAccessible::Document)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    [[nodiscard]] QString text(QAccessible::Text type) const override
    {
        return type == QAccessible::Value ? pageText() : QAccessibleWidget::text(type);
    }

    [[nodiscard]] QString text(int start, int end) const override { return pageText().mid(start, end - start); }
    [[nodiscard]] int characterCount() const override { return static_cast<int>(pageText().size()); }
    [[nodiscard]] QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return {};
    }

    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    [[nodiscard]] int selectionCount() const override { return 0; }
    void addSelection(int, int) override { }
    void removeSelection(int) override { }
    void setSelection(int, int, int) override { }
    [[nodiscard]] int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override { }
    [[nodiscard]] QRect characterRect(int) const override { return rect(); }
    [[nodiscard]] int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override { }

private:
    [[nodiscard]] QString pageText() const
    {
        const auto* const view = static_cast<const PageView*>(object());
        return view->pages() ? view->pages()->textOf(view->currentPage()) : QString();
    }
};

QAccessibleInterface* pageReading(const QString&, QObject* object)
{
    auto* const view = qobject_cast<PageView*>(object);
    return view ? new PageReading(view) : nullptr;
}

} // namespace

void installPageReading()
{
    static const bool isInstalled = (QAccessible::installFactory(pageReading), true);
    Q_UNUSED(isInstalled)
}

void tellPageTurned(PageView& view)
{
    if (!QAccessible::isActive())
        return;
    const QString text = view.pages() ? view.pages()->textOf(view.currentPage()) : QString();
    QAccessibleTextInsertEvent turned(&view, 0, text);
    QAccessible::updateAccessibility(&turned);
}

} // namespace lorvan
