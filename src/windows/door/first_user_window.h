#pragma once

#include "book/book_files.h"
#include "door/entry_dialog.h"
#include "platform/clock.h"

namespace lorvan {

class FirstUserForm;

/// Adds the first user to a book that has none.
class FirstUserWindow : public EntryDialog {
    Q_OBJECT

public:
    FirstUserWindow(BookFiles files, Clock clock, QWidget* parent);

protected:
    void carryOut() override;
    [[nodiscard]] bool hasTyped() const override;

private:
    const BookFiles m_files;
    const Clock m_clock;
    FirstUserForm* m_form;
};

} // namespace lorvan
