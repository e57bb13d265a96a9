#include "platform/files/file_error.h"

namespace lorvan {

FileError::FileError(const QString& path, int number)
    : FileError(path, qt_error_string(number), number)
{
}

FileError::FileError(const QString& path, const QString& reason, int number)
    : std::runtime_error((path + QStringLiteral(": ") + reason).toStdString())
    , m_path(path)
    , m_reason(reason)
    , m_number(number)
{
}

} // namespace lorvan
