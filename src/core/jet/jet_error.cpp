#include "jet/jet_error.h"

#include <QStringList>

namespace lorvan {

JetError::JetError(const QString& reason)
    : m_reason(reason)
{
    compose();
}

void JetError::locate(const JetPlace& place)
{
    if (m_place.file.isEmpty())
        m_place.file = place.file;
    if (m_place.table.isEmpty())
        m_place.table = place.table;
    if (!m_place.page)
        m_place.page = place.page;
    if (!m_place.row)
        m_place.row = place.row;
    if (m_place.column.isEmpty())
        m_place.column = place.column;
    compose();
}

void JetError::compose()
{
    QStringList parts;
    if (!m_place.file.isEmpty())
        parts += m_place.file;
    if (!m_place.table.isEmpty())
        parts += QStringLiteral("πίνακας ") + m_place.table;
    if (m_place.page)
        parts += QStringLiteral("σελίδα %1").arg(*m_place.page);
    if (m_place.row)
        parts += QStringLiteral("γραμμή %1").arg(*m_place.row);
    if (!m_place.column.isEmpty())
        parts += QStringLiteral("στήλη ") + m_place.column;
    const QString place = parts.join(QStringLiteral(", "));
    m_line = (place.isEmpty() ? m_reason : place + QStringLiteral(": ") + m_reason).toUtf8();
}

} // namespace lorvan
