#pragma once

#include <QLineEdit>

namespace lorvan {

/// A field that lies over a title while it is being changed. However it is left, with Enter, Escape or for another
/// control, its text is kept.
class TitleEditor : public QLineEdit {
    Q_OBJECT

public:
    explicit TitleEditor(QWidget* parent = nullptr);

    void open(const QString& title); ///< Shown with all of the title selected.

    [[nodiscard]] bool isOpen() const { return m_isOpen; }

    /// As Enter does; nothing while it is not open.
    void finish();

Q_SIGNALS:
    void finished(const QString& title); ///< Before the field hides itself.

protected:
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool m_isOpen = false;
};

} // namespace lorvan
