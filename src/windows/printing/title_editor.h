#pragma once

#include <QLineEdit>

namespace lorvan {

/// A field placed over a title while it is being edited. However it is left, with Enter, Escape or by moving to another
/// control, its text is kept.
class TitleEditor : public QLineEdit {
    Q_OBJECT

public:
    explicit TitleEditor(QWidget* parent = nullptr);

    void open(const QString& title); ///< Shows the field with all of the title selected.

    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// Has the effect of Enter; does nothing if the field is not open.
    void finish();

Q_SIGNALS:
    void finished(const QString& title); ///< Emitted before the field hides itself.

protected:
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_isOpen = false;
};

} // namespace lorvan
