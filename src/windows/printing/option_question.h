#pragma once

#include <QDialog>

#include <vector>

class QRadioButton;
class QVBoxLayout;

namespace lorvan {

/// A small modal question: options in a frame, of which one at most is chosen, and a button that hides the window.
/// An arrow key chooses the option that it goes to.
class OptionQuestion : public QDialog {
    Q_OBJECT

public:
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    OptionQuestion(const QString& title, const QString& frame, const QStringList& options, QWidget* parent);

    [[nodiscard]] QRadioButton& option(int index) const { return *m_options.at(static_cast<std::size_t>(index)); }

    /// Below the options; comes before the button in the tab order.
    void addBelow(QWidget* widget);

private:
    std::vector<QRadioButton*> m_options;
    QVBoxLayout* m_rows;
};

} // namespace lorvan
