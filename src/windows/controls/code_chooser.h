#pragma once

#include "look/focus_rules.h"

#include <QComboBox>
#include <QStringList>

namespace lorvan {

/// An editable combo box whose text is controlled by its owner: choosing a row is only reported, and the owner decides
/// what to show. No completion, no new entries, no mouse wheel while closed.
class CodeChooser : public QComboBox {
    Q_OBJECT

public:
    explicit CodeChooser(QWidget* parent = nullptr);

    /// Refills the list; the text is kept, and no row is current.
    void setRows(const QStringList& rows);

    /// Shows a text from its beginning; emits nothing and changes nothing else.
    void showText(const QString& text);

    /// Makes a row current, or none (-1), without touching the text; emits nothing.
    void setCurrentRow(int row);

    void showPopup() override;

Q_SIGNALS:
    void picked(int row); ///< From the list or with the arrow keys. The old text is still shown.
    void enterPressed(); ///< Return or keypad Enter with the list closed; the key is not passed on.
    void typed(); ///< The user has edited the text.
    void shown(); ///< The owner shows a text, or the list is opened.
    void left(); ///< Like EntryField::left().

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void dress();
    void noteActivated(int row);
    void noteEdited(const QString& text);

    QString m_shown;
    ClickSelection m_clickSelection;
    bool m_leaving = false;
    bool m_rowIsStale = false;
};

} // namespace lorvan
