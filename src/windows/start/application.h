#pragma once

#include <QApplication>

namespace lorvan {

/// The toolkit's application as both programs with windows set it up: Greek, with our look. The last safety net below
/// the windows: a failure that no action has caught is shown to the user and does not end the program.
class Application : public QApplication {
public:
    Application(int& argumentCount, char** arguments);

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace lorvan
