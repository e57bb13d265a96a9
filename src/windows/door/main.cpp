#include "door/door.h"
#include "start/application.h"
#include "start/termination_signals.h"

int main(int argumentCount, char** arguments)
{
    const lorvan::Application application(argumentCount, arguments);
    lorvan::Door door(QApplication::applicationFilePath(), lorvan::Clock());
    lorvan::TerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &lorvan::TerminationSignals::received, &door, &lorvan::Door::end);
    const bool isShiftDown = QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
    const auto ended = door.start(QApplication::arguments().mid(1), isShiftDown);
    return ended ? *ended : QApplication::exec();
}
