#pragma once

#include "support/book_model.h"

#include <QString>

#include <string>
#include <vector>

namespace lorvan::test {

/// A file of lines that outlives the process that writes it: a line is there as soon as append() has returned.
class WorkerLog {
public:
    explicit WorkerLog(const QString& path);
    ~WorkerLog();
    WorkerLog(const WorkerLog&) = delete;
    WorkerLog& operator=(const WorkerLog&) = delete;

    void append(const std::string& line);

    /// The complete lines of a log; none when there is no such file.
    [[nodiscard]] static std::vector<std::string> read(const QString& path);

private:
    int m_descriptor;
};

[[nodiscard]] std::string changeLine(const ModelChange& change);
[[nodiscard]] ModelChange changeIn(const std::string& line);

} // namespace lorvan::test
