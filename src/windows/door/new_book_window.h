#pragma once

#include "book/path_file.h"
#include "books/book_making.h"
#include "door/entry_dialog.h"

class QComboBox;
class QGroupBox;

namespace lorvan {

class FirstUserForm;

/// Makes a new book: heading, folder, codes, opening balance, first user.
class NewBookWindow : public EntryDialog {
    Q_OBJECT

public:
    NewBookWindow(Clock clock, QWidget* parent);

    /// The book that was made, once the window has been accepted.
    [[nodiscard]] const DataFolderSettings& made() const { return m_made; }

protected:
    void carryOut() override;
    [[nodiscard]] bool hasTyped() const override;

private:
    QGroupBox* bookFields();
    QGroupBox* openingFields();
    void fillSets();
    [[nodiscard]] NewBookDraft typed() const;
    [[nodiscard]] EntryField& fieldOf(NewBookField field) const;

    const Clock m_clock;
    const QString m_offeredFolder;
    const QString m_offeredDay;
    EntryField* m_heading;
    EntryField* m_folder;
    CommandButton* m_browse;
    QComboBox* m_set;
    EntryField* m_amount;
    EntryField* m_day;
    FirstUserForm* m_user;
    DataFolderSettings m_made;
};

} // namespace lorvan
