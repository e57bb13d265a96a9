#include "app/guarded_window.h"

#include "app/failure_text.h"
#include "platform/message_window.h"

namespace lorvan {

void showFailure(QWidget* parent, const std::exception& failure)
{
    showMessage(parent, QMessageBox::Warning, QStringLiteral("Προσοχή"), failureText(failure));
}

} // namespace lorvan
