#include "start/application.h"

#include "controls/alt_keys.h"
#include "controls/guarded_window.h"
#include "look/icons.h"
#include "look/theme.h"

#include <QLocale>

namespace lorvan {

Application::Application(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments)
{
    setApplicationName(QStringLiteral("Lorvan"));
    setDesktopFileName(QStringLiteral("lorvan"));
    QLocale::setDefault(QLocale(QLocale::Greek, QLocale::Greece)); // whatever the machine's own language
    setQuitOnLastWindowClosed(false); // the windows themselves say when the program ends
    Theme::install(*this);
    installAltKeys(*this);
    setWindowIcon(themedIcon(QStringLiteral("daybook"), ColourRole::Accent));
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        showFailure(activeWindow(), failure);
        return true;
    }
}

} // namespace lorvan
