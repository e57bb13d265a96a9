#include "start/application.h"
#include "start/program.h"
#include "start/termination_signals.h"

int main(int argumentCount, char** arguments)
{
    const lorvan::Application application(argumentCount, arguments);
    lorvan::Program program(QApplication::applicationFilePath(), lorvan::Clock());
    lorvan::TerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &lorvan::TerminationSignals::received, &program, &lorvan::Program::end);
    return program.start() ? QApplication::exec() : 0;
}
