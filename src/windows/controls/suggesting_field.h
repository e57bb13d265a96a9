#pragma once

#include "controls/entry_field.h"

#include <functional>

namespace lorvan {

/// An entry field that shows behind the typed text how it could go on. The suggestion is only painted: it is no part of
/// the text, the selection or the accessible value. The right arrow at the end of the text types it; undo takes it
/// back.
class SuggestingField : public EntryField {
    Q_OBJECT

public:
    explicit SuggestingField(TypingRule rule, QWidget* parent = nullptr);

    using Rest = std::function<QString(const QString& typed)>;
    /// `rest` says how a typed text could go on; empty if there is nothing to suggest.
    void setSuggesting(const Rest& rest) { m_ask = rest; }
    /// Asks again, after something was learned.
    void suggestAgain();

    /// What is painted behind the text: only while it is being typed at its end and nothing is selected.
    [[nodiscard]] QString suggestion() const;

protected:
    void focusOutEvent(QFocusEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void accept();

    Rest m_ask;
    QString m_typed; ///< The text as the user left it; any other text is not one that is being typed.
    QString m_rest; ///< Of that text.
    bool m_isComposing = false;
};

} // namespace lorvan
