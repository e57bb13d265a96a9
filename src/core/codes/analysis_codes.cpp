#include "codes/analysis_codes.h"

#include "platform/engine/connection.h"

namespace lorvan {

std::vector<CodeBox> listCodeBoxes(Connection& main)
{
    auto rows = main.prepare("SELECT kvdikos, perigrafh FROM kvdikoi ORDER BY perigrafh COLLATE greek, kvdikos, aa");
    std::vector<CodeBox> boxes;
    while (rows.step()) {
        const QString code = QString::number(rows.number(0));
        boxes.push_back({code + u' ' + rows.text(1), code});
    }
    return boxes;
}

} // namespace lorvan
