#include "books/program_files.h"
#include "controls/guarded_window.h"
#include "start/application.h"
#include "start/program.h"
#include "start/termination_signals.h"

int main(int argumentCount, char** arguments)
{
    const lorvan::Application application(argumentCount, arguments);
    lorvan::Program program(QApplication::applicationFilePath(), lorvan::Clock());
    lorvan::TerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &lorvan::TerminationSignals::received, &program, &lorvan::Program::end);
    const int status = program.start() ? QApplication::exec() : 0;
    if (const QStringList next = program.next(); !next.isEmpty() && !lorvan::TerminationSignals::haveCome())
        lorvan::guarded(nullptr, [&] { lorvan::becomeProgram(next.front(), next.mid(1)); });
    return status;
}
