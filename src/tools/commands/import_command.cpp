#include "support/command.h"

#include "books/new_book.h"
#include "legacy/import_tally.h"
#include "legacy/legacy_book.h"
#include "legacy/legacy_store.h"
#include "platform/work.h"
#include "support/interruption.h"
#include "support/progress_bar.h"

#include <QFileInfo>

namespace lorvan {
namespace {

struct Folders {
    QString older;
    QString target;
};

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

void warnOfLocks(const LegacyFiles& files, const ToolContext& context)
{
    for (const QString& lock : files.lockFiles())
        context.errors << "lorvan-data: Προσοχή: υπάρχει το αρχείο " << lock.toStdString()
                       << "· ίσως το παλιό βιβλίο είναι ανοιχτό σε άλλο πρόγραμμα.\n";
}

/// "kinhseis 2706, tameio 0, ...": the number of rows in each table, ignoring all damage. Empty if nothing can be read.
QString readableRows(const LegacyFiles& files)
{
    try {
        JetDamage damage(JetDamage::Answer::Collect);
        QStringList tables;
        for (const LegacyRows& each : readLegacyBook(files, damage).tables)
            tables.push_back(QStringLiteral("%1 %2").arg(each.table->name).arg(each.rows.size()));
        return QStringLiteral(" Γραμμές που διαβάζονται: ") + tables.join(QStringLiteral(", ")) + u'.';
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
        throw Refused(QString::fromUtf8(error.what())
            + QStringLiteral(".\nΔεν άλλαξε τίποτα. Με --salvage μεταφέρεται ό,τι διαβάζεται.") + readableRows(files));
    }
}

ImportTally importBook(const Folders& folders, const LegacyFiles& files, JetDamage& damage, const ToolContext& context)
{
    const LegacyBook legacy = readOlder(files, damage);
    NewBook made(folders.target);
    {
        ProgressBar progress(context, QStringLiteral("Μεταφορά"));
        const auto whole = static_cast<std::int64_t>(legacy.rowCount());
        fillHidden([&] {
            storeLegacyBook(legacy, made.book(), [&](std::uint64_t stored) {
                Interruption::throwIfCome();
                progress.show(static_cast<std::int64_t>(stored), whole);
            });
        });
    }
    ImportTally tally(legacy, made.book());
    if (!tally.agrees())
        throw Refused(QStringLiteral("Το νέο βιβλίο δεν συμφωνεί με το παλιό. Δεν άλλαξε τίποτα."));
    Interruption::throwIfCome();
    made.keep();
    return tally;
}

ExitStatus importOlderBook(Arguments& arguments, const ToolContext& context)
{
    const bool salvages = arguments.takeFlag(QStringLiteral("--salvage"));
    const QString older = arguments.takeWord(QStringLiteral("ο φάκελος του παλιού βιβλίου"));
    const QString target = arguments.takeWord(QStringLiteral("ο φάκελος του νέου βιβλίου"));
    arguments.finish();

    const Folders folders{QFileInfo(older).absoluteFilePath(), QFileInfo(target).absoluteFilePath()};
    if (!QFileInfo(folders.older).isDir())
        throw Refused(QStringLiteral("Δεν υπάρχει φάκελος %1.").arg(folders.older));
    refuseExistingBook(BookFiles(folders.target));
    const LegacyFiles files(folders.older);
    warnOfLocks(files, context);

    JetDamage damage(salvages ? JetDamage::Answer::Collect : JetDamage::Answer::Refuse);
    const ImportTally tally = importBook(folders, files, damage, context);
    context.out << "Το βιβλίο μεταφέρθηκε στον φάκελο " << folders.target.toStdString() << "\n\n";
    tally.print(context.out);
    printDamage(damage, context.out);
    return damage.count() == 0 ? ExitStatus::Done : ExitStatus::Found;
}

} // namespace

Command importCommand()
{
    return {QStringLiteral("import"), QStringLiteral("ΠΑΛΙΟΣ_ΦΑΚΕΛΟΣ ΝΕΟΣ_ΦΑΚΕΛΟΣ [--salvage]"),
        QStringLiteral("Μεταφέρει ένα βιβλίο της παλαιότερης μορφής (Jet 4.0)."),
        QStringLiteral(
            "\n  --salvage   μεταφέρει ό,τι διαβάζεται από ένα βιβλίο με βλάβες και απαριθμεί τα υπόλοιπα·\n"
            "              ο κωδικός εξόδου είναι 1 όταν έμεινε κάτι πίσω\n\n"
            "Ο παλιός φάκελος, με τα lorvan.mdb και mapcodes.mdb, μόνο διαβάζεται. Το νέο βιβλίο εμφανίζεται\n"
            "ολόκληρο στο τέλος· αν κάτι δεν πάει καλά, δεν εμφανίζεται τίποτα.\n"),
        importOlderBook};
}

} // namespace lorvan
