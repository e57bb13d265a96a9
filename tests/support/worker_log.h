#pragma once

#include "support/book_model.h"

#include <QString>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace lorvan::test {

/// A file of lines that outlives the process that writes it: a line is there as soon as append() has returned.
class WorkerLog {
public:
    explicit WorkerLog(const QString& path)
        : m_file(path.toStdString(), std::ios::app)
    {
        m_file.exceptions(std::ios::failbit | std::ios::badbit);
    }
    void append(const std::string& line) { m_file << line + '\n' << std::flush; }

    /// The complete lines of a log; none when there is no such file.
    [[nodiscard]] static std::vector<std::string> read(const QString& path)
    {
        std::ifstream file(path.toStdString());
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line) && !file.eof();)
            lines.push_back(line);
        return lines;
    }

private:
    std::ofstream m_file;
};

/// A change as a line of the log.
[[nodiscard]] inline std::string changeLine(const ModelChange& change)
{
    std::ostringstream line;
    line << static_cast<char>(change.kind) << ' ' << change.movement.key << ' ' << change.movement.day << ' '
         << change.movement.incomeCents << ' ' << change.movement.expenseCents;
    return line.str();
}

[[nodiscard]] inline ModelChange changeIn(const std::string& line)
{
    std::istringstream fields(line);
    char kind = 0;
    ModelChange change;
    fields >> kind >> change.movement.key >> change.movement.day >> change.movement.incomeCents
        >> change.movement.expenseCents;
    change.kind = static_cast<ModelChange::Kind>(kind);
    return change;
}

} // namespace lorvan::test
