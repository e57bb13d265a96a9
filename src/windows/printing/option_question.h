#pragma once

#include "document/report_inputs.h"

#include <QDialog>

#include <vector>

class QCheckBox;
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

/// The question whether a report is wanted in detail or in summary. Neither is chosen at first. Leaving it in another
/// way than by its button does the same.
class Ervthsh : public OptionQuestion {
    Q_OBJECT

public:
    explicit Ervthsh(QWidget* parent = nullptr);

    [[nodiscard]] bool isDetailedChosen() const;
    [[nodiscard]] bool isSummaryChosen() const;
};

/// The question how the list of codes is sorted and whether it holds the active ones alone. By code and with all of
/// them at first. Leaving it in another way than by its button does the same.
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
