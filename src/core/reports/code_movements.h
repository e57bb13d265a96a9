#pragma once

#include "document/report_inputs.h"
#include "reports/code_sums.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace lorvan {

class Connection;

/// A movement of a report by code.
struct CodeMovement {
    qint32 code = 0;
    int day = 0; ///< As stored, yyyymmdd.
    qint64 key = 0; ///< `aa`
    MovementSums amounts;
    std::uint32_t textStart = 0; ///< Of its description, see CodeMovements::description().
    std::uint32_t textLength = 0;
};

/// Movements by code, newest date first, then in the order in which they were entered. About 100 bytes each. Sorted
/// here, since reading them in order takes the engine twice as long.
class CodeMovements {
public:
    /// Those of the period and of the chosen codes. Runs inside the caller's transaction. Throws SqlError.
    CodeMovements(Connection& main, const ReportInputs& inputs);

    [[nodiscard]] bool isEmpty() const { return m_movements.empty(); }
    [[nodiscard]] auto begin() const { return m_movements.begin(); }
    [[nodiscard]] auto end() const { return m_movements.end(); }

    /// Without blanks around it. Valid as long as this object.
    [[nodiscard]] QStringView description(const CodeMovement& movement) const
    {
        return QStringView(m_texts).sliced(movement.textStart, movement.textLength);
    }

private:
    std::vector<CodeMovement> m_movements;
    std::u16string m_texts;
};

} // namespace lorvan
