#include "books/older_book.h"

#include "books/new_book.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_book.h"
#include "legacy/legacy_store.h"
#include "platform/stop_check.h"
#include "platform/work_watch.h"

#include <QFileInfo>

#include <sstream>

namespace lorvan {
namespace {

bool isBookOfToday(const QString& mainDatabase)
{
    try {
        KeyRing keys(bookPassword());
        (void)Connection::open(mainDatabase, keys.keyFor(mainDatabase), Connection::Access::ReadOnly);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

QString readableRowsOf(const LegacyFiles& files)
{
    try {
        JetDamage damage(JetDamage::Answer::Collect);
        QStringList tables;
        for (const LegacyRows& each : readLegacyBook(files, damage).tables)
            tables.push_back(QStringLiteral("%1 %2").arg(each.table->name).arg(each.rows.size()));
        return QStringLiteral("Γραμμές που διαβάζονται: ") + tables.join(QStringLiteral(", ")) + u'.';
    } catch (const std::exception&) {
        return {};
    }
}

LegacyBook readOlder(const LegacyFiles& files, JetDamage& damage)
{
    try {
        return readLegacyBook(files, damage);
    } catch (const NotAJetFile& error) {
        if (isBookOfToday(files.mainDatabase()))
            throw Refused(
                QStringLiteral("Το βιβλίο στον φάκελο %1 είναι ήδη στη σημερινή μορφή. Δεν χρειάζεται μεταφορά.")
                    .arg(QFileInfo(files.mainDatabase()).path()));
        throw Refused(QString::fromUtf8(error.what()) + QStringLiteral(". Δεν άλλαξε τίποτα."));
    } catch (const JetError& error) {
        throw OlderBookDamaged(QString::fromUtf8(error.what()), readableRowsOf(files));
    }
}

} // namespace

OlderBookDamaged::OlderBookDamaged(const QString& damage, const QString& readableRows)
    : Refused(damage + QStringLiteral(".\nΔεν άλλαξε τίποτα."))
    , m_damage(damage)
    , m_readableRows(readableRows)
{
}

ImportTally importOlderBook(
    const LegacyFiles& files, const QString& target, JetDamage& damage, const StepProgress& progress)
{
    beginStep(QStringLiteral("Διαβάζεται το παλιό βιβλίο…"));
    const LegacyBook legacy = readOlder(files, damage);
    NewBook made(target);
    const auto whole = static_cast<qint64>(legacy.rowCount());
    beginStep(QStringLiteral("Γράφεται το νέο βιβλίο…"));
    fillHidden([&] {
        storeLegacyBook(legacy, made.book(), [&](std::uint64_t stored) {
            continueOrGiveUp();
            progress(static_cast<qint64>(stored), whole);
        });
    });
    beginStep(QStringLiteral("Συγκρίνεται το νέο βιβλίο με το παλιό…"));
    ImportTally tally(legacy, made.book());
    if (!tally.agrees())
        throw Refused(QStringLiteral("Το νέο βιβλίο δεν συμφωνεί με το παλιό. Δεν άλλαξε τίποτα."));
    decideOrGiveUp();
    made.keep();
    return tally;
}

QString importReport(const ImportTally& tally, const JetDamage& damage)
{
    std::ostringstream text;
    tally.print(text);
    printDamage(damage, text);
    return QString::fromStdString(text.str());
}

} // namespace lorvan
