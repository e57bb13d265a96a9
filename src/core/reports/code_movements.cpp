#include "reports/code_movements.h"

#include "platform/engine/connection.h"
#include "reports/movement_choice.h"

#include <algorithm>
#include <tuple>

namespace lorvan {
namespace {

bool standsBefore(const CodeMovement& left, const CodeMovement& right)
{
    return std::tie(left.code, right.day, left.key) < std::tie(right.code, left.day, right.key);
}

} // namespace

CodeMovements::CodeMovements(Connection& main, const ReportInputs& inputs)
{
    auto rows = main.prepare("SELECT kvdikos, hmeromhnia, aa, esoda, ejoda, L_tajeos, perigrafh"
        + movementsFor(main, {inputs.start, inputs.end, MovementChoice::By::Code, inputs.codes}));
    rows.bind(inputs.start, inputs.end);
    while (rows.step()) {
        const QString text = rows.text(6).trimmed();
        m_movements.push_back(
            {rows.number(0), rows.number(1), rows.integer(2), {rows.currency(3), rows.currency(4), rows.currency(5)},
                static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint32_t>(text.size())});
        m_texts.append(QStringView(text).utf16(), static_cast<std::size_t>(text.size()));
    }
    std::sort(m_movements.begin(), m_movements.end(), standsBefore);
}

} // namespace lorvan
