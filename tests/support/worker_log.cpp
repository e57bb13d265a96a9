#include "support/worker_log.h"

#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace lorvan::test {

WorkerLog::WorkerLog(const QString& path)
    : m_descriptor(::open(path.toUtf8().constData(), O_WRONLY | O_CREAT | O_APPEND, 0666))
{
}

WorkerLog::~WorkerLog()
{
    ::close(m_descriptor);
}

void WorkerLog::append(const std::string& line)
{
    const std::string bytes = line + '\n';
    if (::write(m_descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("the log cannot be written");
}

std::vector<std::string> WorkerLog::read(const QString& path)
{
    std::ifstream file(path.toStdString());
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(file, line) && !file.eof())
        lines.push_back(line);
    return lines;
}

std::string changeLine(const ModelChange& change)
{
    std::ostringstream line;
    line << static_cast<char>(change.kind) << ' ' << change.movement.key << ' ' << change.movement.day << ' '
         << change.movement.incomeCents << ' ' << change.movement.expenseCents;
    return line.str();
}

ModelChange changeIn(const std::string& line)
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
