#pragma once

#include "document/report_inputs.h"
#include "printing/option_question.h"

class QCheckBox;

namespace lorvan {

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
