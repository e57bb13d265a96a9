#include "proof/last_proof.h"

#include "book/book_files.h"
#include "platform/files/mount_table.h"
#include "platform/files/settings_store.h"

#include <QCryptographicHash>
#include <QStringList>

#include <chrono>

namespace lorvan {
namespace {

using namespace std::chrono_literals;

constexpr auto holdsFor = 12h;
const QString section = QStringLiteral("Proofs");

/// The folder itself could contain characters that a key must not.
QString keyOf(const BookFiles& book)
{
    const QByteArray folder = book.dataFolder().toUtf8();
    return QString::fromLatin1(QCryptographicHash::hash(folder, QCryptographicHash::Sha256).toHex());
}

} // namespace

std::optional<LastProof> lastProof(const SettingsStore& settings, const BookFiles& book)
{
    const QStringList fields = settings.value(section, keyOf(book), {}).split(u' ');
    const QDateTime at = QDateTime::fromString(fields.first(), Qt::ISODate);
    if (!at.isValid())
        return std::nullopt;
    const auto number = [&fields](int place) { return fields.value(place).toLongLong(); };
    return LastProof{at.toLocalTime(), number(1), number(2), number(3)};
}

void rememberProof(const SettingsStore& settings, const BookFiles& book, const LastProof& proof)
{
    const QString value = QStringLiteral("%1 %2 %3 %4")
                              .arg(proof.at.toUTC().toString(Qt::ISODate))
                              .arg(proof.movements)
                              .arg(proof.days)
                              .arg(proof.seals);
    settings.write({{section, keyOf(book), value}});
}

bool provesUnasked(bool isOnNetwork, const std::optional<LastProof>& last, const QDateTime& now)
{
    const bool isRecent =
        last && last->at <= now && last->at.msecsTo(now) < std::chrono::milliseconds(holdsFor).count();
    return !(isOnNetwork && isRecent);
}

bool isOnNetwork(const BookFiles& book)
{
    return isOnNetwork(mountOf(mountInfo(), book.dataFolder()));
}

} // namespace lorvan
