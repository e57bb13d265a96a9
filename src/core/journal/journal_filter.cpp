#include "journal/journal_filter.h"

#include "journal/journal_texts.h"
#include "platform/date_text.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace lorvan {
namespace {

struct KindTexts {
    JournalKind kind;
    const char* prefix; ///< Of the subjects; the number or name follows after a slash.
    const char* heading;
};

constexpr KindTexts kinds[] = {
    {JournalKind::Movement, "movement", "Κινήσεις"},
    {JournalKind::CashDay, "day", "Ημέρες ταμείου"},
    {JournalKind::Code, "code", "Κωδικοί"},
    {JournalKind::Group, "group", "Ομάδες"},
    {JournalKind::User, "user", "Χρήστες"},
    {JournalKind::Book, "book", "Όλο το βιβλίο"},
};

const KindTexts& textsOf(JournalKind kind)
{
    return *std::find_if(
        std::begin(kinds), std::end(kinds), [&](const KindTexts& texts) { return texts.kind == kind; });
}

/// The code that a movement, or a code itself, had before a change.
std::optional<std::int64_t> formerCode(const JournalRow& row)
{
    if (!row.before)
        return std::nullopt;
    const QJsonValue code = QJsonDocument::fromJson(row.before->toUtf8()).object()[QStringLiteral("kvdikos")];
    return code.isDouble() ? std::optional<std::int64_t>(code.toInteger()) : std::nullopt;
}

} // namespace

std::optional<JournalKind> journalKind(const QString& subject)
{
    const QString prefix = subject.section(u'/', 0, 0);
    const auto* const found = std::find_if(std::begin(kinds), std::end(kinds),
        [&](const KindTexts& texts) { return prefix == QLatin1String(texts.prefix); });
    return found == std::end(kinds) ? std::nullopt : std::optional(found->kind);
}

std::pair<QString, QString> journalSubjects(JournalKind kind)
{
    const QString prefix = QLatin1String(textsOf(kind).prefix);
    if (kind == JournalKind::Book)
        return {prefix, prefix + QChar(u'\x01')};
    return {prefix + u'/', prefix + u'0'}; // the character behind the slash
}

QString journalKindText(JournalKind kind)
{
    return QString::fromUtf8(textsOf(kind).heading);
}

const std::vector<JournalKind>& journalKinds()
{
    static const std::vector<JournalKind> all = [] {
        std::vector<JournalKind> found;
        for (const KindTexts& texts : kinds)
            found.push_back(texts.kind);
        return found;
    }();
    return all;
}

QString journalFilterText(const JournalFilter& filter)
{
    QStringList parts;
    if (!filter.subject.isEmpty())
        parts += QStringLiteral("η ιστορία: ") + journalSubjectText(filter.subject);
    if (filter.day)
        parts += QStringLiteral("ημέρα ") + dateText(*filter.day);
    if (!filter.user.isEmpty())
        parts += QStringLiteral("χρήστης ") + filter.user;
    if (filter.code)
        parts += QStringLiteral("κωδικός %1").arg(*filter.code);
    if (filter.kind)
        parts += QStringLiteral("είδος: ") + journalKindText(*filter.kind);
    if (parts.isEmpty())
        return QStringLiteral("Όλες οι αλλαγές");
    return QStringLiteral("Φίλτρα: ") + parts.join(QStringLiteral(", "));
}

JournalMatch::JournalMatch(JournalFilter filter)
    : m_filter(std::move(filter))
    , m_user(m_filter.user)
{
}

bool JournalMatch::accepts(const JournalRow& row) const
{
    return acceptsSubject(row.subject) && (!m_filter.day || row.day == storedDate(*m_filter.day))
        && (m_user.isEmpty() || m_user.indexIn(row.user) >= 0)
        && (!m_filter.code || row.code == m_filter.code || (row.code && formerCode(row) == m_filter.code));
}

bool JournalMatch::acceptsSubject(const QString& subject) const
{
    return (m_filter.subject.isEmpty() || subject == m_filter.subject)
        && (!m_filter.kind || journalKind(subject) == m_filter.kind);
}

} // namespace lorvan
