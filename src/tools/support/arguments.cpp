#include "support/arguments.h"

#include <QFileInfo>

#include <utility>

namespace lorvan {

UsageError::UsageError(const QString& message)
    : std::runtime_error(message.toStdString())
{
}

Arguments::Arguments(QStringList words)
    : m_words(std::move(words))
{
}

std::optional<QString> Arguments::takeOption(const QString& name)
{
    for (qsizetype i = 0; i < m_words.size(); ++i) {
        if (m_words[i].startsWith(name + u'='))
            return m_words.takeAt(i).mid(name.size() + 1);
        if (m_words[i] != name)
            continue;
        if (i + 1 == m_words.size())
            throw UsageError(QStringLiteral("Μετά το %1 λείπει η τιμή του.").arg(name));
        m_words.removeAt(i);
        return m_words.takeAt(i);
    }
    return std::nullopt;
}

bool Arguments::takeFlag(const QString& name)
{
    return m_words.removeAll(name) > 0;
}

QString Arguments::takeWord(const QString& what)
{
    if (m_words.isEmpty() || m_words.first().isEmpty())
        throw UsageError(QStringLiteral("Λείπει: %1.").arg(what));
    if (m_words.first().startsWith(u'-'))
        throw UsageError(QStringLiteral("Άγνωστη επιλογή: %1.").arg(m_words.first()));
    return m_words.takeFirst();
}

QString Arguments::takeBookFolder()
{
    return QFileInfo(takeWord(QStringLiteral("ο φάκελος του βιβλίου"))).absoluteFilePath();
}

std::optional<QString> Arguments::takeOptionalWord()
{
    return m_words.isEmpty() ? std::nullopt : std::optional(takeWord(QString()));
}

void Arguments::finish() const
{
    if (!m_words.isEmpty())
        throw UsageError(QStringLiteral("Περισσεύει: %1.").arg(m_words.join(u' ')));
}

} // namespace lorvan
