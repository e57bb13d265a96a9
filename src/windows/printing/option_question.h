#pragma once

#include "document/report_inputs.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QRadioButton;
class QVBoxLayout;

namespace lorvan {

/// A small modal question: options in a frame, of which at most one is chosen, and a button that hides the window. The
/// arrow keys choose the option that they move to.
class OptionQuestion : public QDialog {
    Q_OBJECT

public:
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    OptionQuestion(const QString& title, const QString& frame, const QStringList& options, QWidget* parent);

    [[nodiscard]] QRadioButton& option(int index) const { return *m_options.at(static_cast<std::size_t>(index)); }

    /// Placed below the options; comes before the button in the tab order.
    void addBelow(QWidget* widget);

private:
    std::vector<QRadioButton*> m_options;
    QVBoxLayout* m_rows;
};

/// Asks whether a report is wanted in detailed or in summary form. Neither is chosen at first. Closing the window in
/// another way has the same effect as its button.
class Ervthsh : public OptionQuestion {
    Q_OBJECT

public:
    explicit Ervthsh(QWidget* parent = nullptr);

    [[nodiscard]] bool isDetailedChosen() const;
    [[nodiscard]] bool isSummaryChosen() const;
};

/// Asks how the list of codes is sorted and whether it has only the active ones. At first: by code, and all of them.
/// Closing the window in another way has the same effect as its button.
class FormaTajinomhshs : public OptionQuestion {
    Q_OBJECT

public:
    explicit FormaTajinomhshs(QWidget* parent = nullptr);

    [[nodiscard]] CodeSort sort() const { return m_sort; }
    [[nodiscard]] CodeSelection selection() const;

private:
    CodeSort m_sort = CodeSort::Code;
    QCheckBox* m_activeOnly;
};

} // namespace lorvan
