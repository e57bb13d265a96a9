#include "benchmarks.h"

#include "bare_sql.h"
#include "platform/engine/connection.h"

#include <QFile>

#include <memory>

namespace lorvan::bench {
namespace {

QByteArray saltOf(const QString& path)
{
    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    return file.read(16);
}

} // namespace

std::vector<Comparison> openingBenchmarks(const BookFiles& files)
{
    const QString path = files.mainDatabase();
    const auto keys = std::make_shared<KeyRing>(bookPassword());
    const QByteArray derived = keys->keyFor(path).engineText();
    const auto openWith = [path](const QByteArray& key) { return [=] { const BareConnection connection(path, key); }; };
    return {
        {QStringLiteral("key, against opening by password"), {openWith(bookPassword())},
            {[path] { (void)FileKey::derive(bookPassword(), saltOf(path)); }}, std::nullopt, 15},
        {QStringLiteral("open with the derived key"), {openWith(derived)},
            {[path, keys] { (void)Connection::open(path, keys->keyFor(path), Connection::Access::ReadWrite); }},
            std::nullopt},
    };
}

} // namespace lorvan::bench
