#pragma once

#include "printing/option_question.h"

namespace lorvan {

/// The question whether a report is wanted in detail or in summary. Neither is chosen at first. Leaving it in another
/// way than by its button does the same.
class Ervthsh : public OptionQuestion {
    Q_OBJECT

public:
    explicit Ervthsh(QWidget* parent = nullptr);

    [[nodiscard]] bool isDetailedChosen() const;
    [[nodiscard]] bool isSummaryChosen() const;
};

} // namespace lorvan
