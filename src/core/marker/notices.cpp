#include "marker/notices.h"

#include "marker/usage_marker.h"
#include "platform/date_text.h"

#include <QStringList>

#include <iterator>

namespace lorvan {
namespace {

/// " από τις 10:35", preceded by the day if that is not today; empty for a time unknown or in the future.
QString sinceText(const QDateTime& since, const QDateTime& now)
{
    if (!since.isValid() || since > now)
        return {};
    const QString time = since.time().toString(QStringLiteral("HH:mm"));
    return since.date() == now.date() ? QStringLiteral(" από τις ") + time
                                      : QStringLiteral(" από ") + dateText(since.date()) + u' ' + time;
}

} // namespace

Notice NoticeBoard::shown() const
{
    if (m_notices.empty())
        return {};
    Notice first = m_notices.begin()->second;
    if (m_notices.size() == 1)
        return first;
    QStringList all;
    for (const auto& [kind, notice] : m_notices)
        all += notice.reason.isEmpty() ? notice.text : notice.text + u'\n' + notice.reason;
    first.reason = all.join(QStringLiteral("\n\n"));
    return first;
}

std::optional<NoticeKind> NoticeBoard::shownKind() const
{
    return m_notices.empty() ? std::nullopt : std::optional(m_notices.begin()->first);
}

std::vector<std::pair<NoticeKind, Notice>> NoticeBoard::others() const
{
    if (m_notices.empty())
        return {};
    return {std::next(m_notices.begin()), m_notices.end()};
}

QString othersText(std::size_t count)
{
    return QStringLiteral("και %1 ακόμη").arg(count);
}

Notice dayClosedNotice(QDate day, const QString& checkCode)
{
    const QString code = checkCode.isEmpty() ? QString() : QStringLiteral(", κωδικός ελέγχου ") + checkCode;
    return {QStringLiteral("Η ημέρα %1 έκλεισε").arg(dateText(day)) + code, {}, false};
}

Notice openDaysNotice(int count, QDate since)
{
    return {QStringLiteral("Ανοικτές ημέρες: %1 (από %2)").arg(count).arg(dateText(since)),
        QStringLiteral("Ημέρες του ταμείου πριν από σήμερα που δεν έκλεισαν. Με κλικ φαίνονται όλες."), false, true};
}

Notice heldNotice(const MarkerHolder& holder, const QDateTime& now)
{
    return {
        QStringLiteral("Στο βιβλίο δουλεύει ο χρήστης %1 στον υπολογιστή %2%3. Μπορείτε να βλέπετε και να τυπώνετε.")
            .arg(holder.identity.user, holder.identity.computer, sinceText(holder.since, now)),
        QStringLiteral(
            "Αλλαγές κάνει ένας υπολογιστής κάθε φορά. Όταν ο άλλος τελειώσει, η γραμμή αυτή φεύγει μόνη της.")};
}

Notice readOnlyNotice()
{
    return {QStringLiteral("Το βιβλίο άνοιξε μόνο για ανάγνωση: στον φάκελό του τα κλειδώματα δεν ισχύουν."),
        QStringLiteral("Στον φάκελο των δεδομένων τα κλειδώματα δεν ισχύουν: δύο προγράμματα θα μπορούσαν να γράψουν"
                       " μαζί και να χαλάσουν το βιβλίο.")};
}

std::optional<Notice> weakDiskNotice(LockReach locks, bool knowsSync)
{
    if (locks == LockReach::ThisComputer)
        return Notice{QStringLiteral("Προσοχή: τα κλειδώματα αυτού του φακέλου δεν ισχύουν για άλλους υπολογιστές."),
            QStringLiteral("Να μην αλλάζει το βιβλίο από δύο υπολογιστές μαζί: το αρχείο χρήσης μόνο δεν αρκεί.")};
    if (!knowsSync)
        return Notice{QStringLiteral("Ο δίσκος αυτού του φακέλου δεν επιβεβαιώνει ονόματα αρχείων."),
            QStringLiteral("Μετά από μια διακοπή ρεύματος μπορεί να λείπει η τελευταία αλλαγή.")};
    return std::nullopt;
}

std::optional<Notice> oldBackupNotice(QDate last, QDate today)
{
    constexpr int daysUnmentioned = 7;
    const qint64 age = last.daysTo(today);
    if (!last.isValid() || age <= daysUnmentioned)
        return std::nullopt;
    Notice notice{QStringLiteral("Το τελευταίο αντίγραφο ασφαλείας είναι %1 ημερών (%2)").arg(age).arg(dateText(last))};
    notice.reason = QStringLiteral("Με ένα κλικ γίνεται ένα τώρα.");
    notice.leadsOn = true;
    return notice;
}

Notice backupFailedNotice(const QString& reason)
{
    return {QStringLiteral("Το σημερινό αντίγραφο ασφαλείας δεν έγινε."), reason};
}

} // namespace lorvan
