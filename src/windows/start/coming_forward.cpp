#include "start/coming_forward.h"

#include <QApplication>
#include <QWidget>

namespace lorvan {
namespace {

constexpr const char* tokenName = "XDG_ACTIVATION_TOKEN";

} // namespace

QByteArray activationToken()
{
    return qgetenv(tokenName);
}

void bringForward(QWidget* window, const QByteArray& token)
{
    if (QWidget* const modal = QApplication::activeModalWidget())
        window = modal;
    if (!window)
        return;
    if (!token.isEmpty())
        qputenv(tokenName, token); // the toolkit takes it from there
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    window->raise();
    window->activateWindow();
    QApplication::alert(window);
    qunsetenv(tokenName);
}

} // namespace lorvan
