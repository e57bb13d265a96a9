#include "controls/date_check.h"

#include "controls/entry_field.h"
#include "look/message_window.h"
#include "platform/date_text.h"

namespace lorvan {

std::optional<QDate> checkDate(EntryField& field, QDate today)
{
    const auto date = readDate(field.text(), today);
    if (date)
        field.setText(dateText(*date));
    else
        showMessage(field.window(), QMessageBox::Warning, QStringLiteral("Λάθος ημερομηνία"),
            QStringLiteral("Η εισαγωγή της ημερομηνίας είναι λάθος"));
    return date;
}

} // namespace lorvan
