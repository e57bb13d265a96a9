#include "controls/guarded_window.h"
#include "look/icons.h"
#include "look/theme.h"
#include "start/program.h"
#include "start/termination_signals.h"

#include <QApplication>
#include <QLocale>

namespace {

/// The last safety net below the windows: a failure that no action has caught is shown to the user and does not end the
/// program.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& failure) {
            lorvan::showFailure(activeWindow(), failure);
            return true;
        }
    }
};

} // namespace

int main(int argumentCount, char** arguments)
{
    Application application(argumentCount, arguments);
    QApplication::setApplicationName(QStringLiteral("Lorvan"));
    QLocale::setDefault(QLocale(QLocale::Greek, QLocale::Greece)); // whatever the machine's own language
    QApplication::setQuitOnLastWindowClosed(false); // the windows themselves say when the program ends
    lorvan::Theme::install(application);
    QApplication::setWindowIcon(lorvan::themedIcon(QStringLiteral("daybook"), lorvan::ColourRole::Accent));

    lorvan::Program program(QApplication::applicationFilePath(), lorvan::Clock());
    lorvan::TerminationSignals signalsOfSystem;
    QObject::connect(&signalsOfSystem, &lorvan::TerminationSignals::received, &program, &lorvan::Program::end);
    return program.start() ? QApplication::exec() : 0;
}
