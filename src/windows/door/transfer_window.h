#pragma once

#include "book/path_file.h"
#include "door/entry_dialog.h"

#include <optional>

namespace lorvan {

/// What a book is made from in a transfer, for its window.
struct TransferTexts {
    QString objectName;
    QString title;
    QString doing; ///< The caption of the button.
    QString source; ///< The caption of the first field.
    QString heading; ///< Offered for the new book.
};

/// Makes a book in a folder from something that is there already, and shows a report.
class TransferWindow : public EntryDialog {
    Q_OBJECT

public:
    /// The book that was made, once the window has been accepted.
    [[nodiscard]] const DataFolderSettings& made() const { return m_made; }

protected:
    TransferWindow(const TransferTexts& texts, QWidget* parent);

    /// Asks for the source in a dialog; empty if the user cancels.
    [[nodiscard]] virtual QString browse() = 0;
    /// Why the book cannot come into that folder, in plain Greek; empty if it can.
    [[nodiscard]] virtual QString faultOfTarget(const QString& folder) const = 0;
    /// Makes the book and returns the report; no value if the user gave it up or it was refused, who was told why.
    [[nodiscard]] virtual std::optional<QString> transfer(const QString& source, const QString& folder) = 0;

    void carryOut() override;
    [[nodiscard]] bool hasTyped() const override;

private:
    QString m_offeredFolder;
    EntryField* m_source;
    CommandButton* m_browse;
    EntryField* m_heading;
    EntryField* m_folder;
    CommandButton* m_browseFolder;
    DataFolderSettings m_made;
};

} // namespace lorvan
