#pragma once

#include "lists/plain_list.h"

namespace lorvan {

class CodeChooser;

/// The codes that the text typed into the chooser offers, in a list below it. The keyboard stays in the chooser until
/// Down leads into the list; from there Enter picks, Up from the first row and Escape lead back, and typing goes on in
/// the chooser. The list is shut when the chooser is left.
class CodeOfferList : public PlainList {
    Q_OBJECT

public:
    explicit CodeOfferList(CodeChooser* chooser);

    /// Shows these rows below the chooser; none shuts the list.
    void offer(const std::vector<ListRow>& rows);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void picked(qint64 data); ///< By Enter or a click; the keyboard is in the chooser again.

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool takeFieldKey(const QKeyEvent& event);
    void enterList();
    void goBack();
    void pickRow(const QModelIndex& row);
    void place();

    CodeChooser* m_chooser;
};

} // namespace lorvan
