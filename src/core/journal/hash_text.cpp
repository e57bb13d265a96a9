#include "journal/hash_text.h"

#include <QCryptographicHash>

namespace lorvan {

HashText& HashText::add(const char* name, const QString& value)
{
    QByteArray escaped = value.toUtf8();
    escaped.replace('\\', "\\\\").replace('\n', "\\n");
    m_text.append(name).append('=').append(escaped).append('\n');
    return *this;
}

HashText& HashText::add(const char* name, std::int64_t value)
{
    m_text.append(name).append('=').append(QByteArray::number(qlonglong(value))).append('\n');
    return *this;
}

HashText& HashText::add(const char* name, const std::optional<QString>& value)
{
    return value ? add(name, *value) : *this;
}

HashText& HashText::add(const char* name, const std::optional<std::int64_t>& value)
{
    return value ? add(name, *value) : *this;
}

QString HashText::hash() const
{
    return QString::fromLatin1(QCryptographicHash::hash(m_text, QCryptographicHash::Sha256).toHex());
}

} // namespace lorvan
