#include "printing/ervthsh.h"

#include "look/window_placement.h"

#include <QRadioButton>

namespace lorvan {
namespace {

enum Option { Detailed, Summary };

constexpr QSize firstSize{280, 164};

} // namespace

Ervthsh::Ervthsh(QWidget* parent)
    : OptionQuestion(QStringLiteral("Ερώτηση"), QStringLiteral("Επιλογή εκτύπωσης"),
        {QStringLiteral("Αναλυτικά"), QStringLiteral("Συνοπτικά")}, parent)
{
    setObjectName(QStringLiteral("Ervthsh"));
    sizeWithin(this, firstSize);
}

bool Ervthsh::isDetailedChosen() const
{
    return option(Detailed).isChecked();
}

bool Ervthsh::isSummaryChosen() const
{
    return option(Summary).isChecked();
}

} // namespace lorvan
