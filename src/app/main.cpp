#include "app/program.h"
#include "app/termination_signals.h"
#include "controls/theme.h"

#include <QApplication>

int main(int argumentCount, char** arguments)
{
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("Lorvan"));
    QApplication::setQuitOnLastWindowClosed(false); // the windows say themselves when the program ends
    lorvan::Theme::install(application);

    lorvan::Program program(QApplication::applicationFilePath(), lorvan::Clock());
    lorvan::TerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &lorvan::TerminationSignals::received, &program, &lorvan::Program::end);
    return program.start() ? QApplication::exec() : 0;
}
