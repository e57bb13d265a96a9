#include "look/remembered_size.h"

#include "look/window_placement.h"
#include "platform/files/settings_store.h"

#include <QEvent>
#include <QStringList>
#include <QWidget>

namespace lorvan {
namespace {

const QString section = QStringLiteral("Windows");
const QString maximised = QStringLiteral("maximised");

QString storedSize(const QWidget* window)
{
    try {
        return SettingsStore().value(section, window->objectName(), {});
    } catch (const SettingsError&) {
        return {};
    }
}

/// Of "800 600"; invalid if the text is anything else.
QSize sizeIn(const QStringList& words)
{
    bool hasWidth = false;
    bool hasHeight = false;
    const QSize size(words.value(0).toInt(&hasWidth), words.value(1).toInt(&hasHeight));
    return hasWidth && hasHeight && !size.isEmpty() ? size : QSize();
}

class SizeKeeper : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const window = static_cast<const QWidget*>(watched);
        if (event->type() == QEvent::Show && !event->spontaneous()) {
            m_shown = window->size();
            m_wasMaximised = window->isMaximized();
        } else if (event->type() == QEvent::Hide
            && (window->size() != m_shown || window->isMaximized() != m_wasMaximised)) {
            rememberSize(window);
        }
        return false;
    }

private:
    QSize m_shown;
    bool m_wasMaximised = false;
};

} // namespace

void keepSize(QWidget* window, QSize first)
{
    restoreSize(window, first);
    window->installEventFilter(new SizeKeeper(window));
}

void restoreSize(QWidget* window, QSize first)
{
    const QStringList words = storedSize(window).split(u' ');
    const QSize size = sizeIn(words);
    sizeWithin(window, size.isValid() ? size : first);
    if (size.isValid() && words.value(2) == maximised)
        window->setWindowState(Qt::WindowMaximized);
}

void rememberSize(const QWidget* window)
{
    const QSize size = window->isMaximized() ? window->normalGeometry().size() : window->size();
    QString text = QStringLiteral("%1 %2").arg(size.width()).arg(size.height());
    if (window->isMaximized())
        text += u' ' + maximised;
    try {
        SettingsStore().write({{section, window->objectName(), text}});
    } catch (const SettingsError&) {
        // The next time the window begins with its earlier size.
    }
}

} // namespace lorvan
