#include "support/command.h"

#include "books/new_book.h"
#include "books/older_book.h"
#include "jet/jet_damage.h"
#include "legacy/legacy_book.h"
#include "platform/work.h"
#include "support/progress_bar.h"

#include <QFileInfo>

namespace lorvan {
namespace {

void warnOfLocks(const LegacyFiles& files, const ToolContext& context)
{
    for (const QString& lock : files.lockFiles())
        context.errors << "lorvan-data: Προσοχή: υπάρχει το αρχείο " << lock.toStdString()
                       << "· ίσως το παλιό βιβλίο είναι ανοιχτό σε άλλο πρόγραμμα.\n";
}

ImportTally importBook(const LegacyFiles& files, const QString& target, JetDamage& damage, const ToolContext& context)
{
    ProgressBar bar(context, QStringLiteral("Μεταφορά"));
    try {
        return importOlderBook(files, target, damage, [&bar](qint64 done, qint64 whole) { bar.show(done, whole); });
    } catch (const OlderBookDamaged& refusal) {
        throw Refused(QStringLiteral("%1.\nΔεν άλλαξε τίποτα. Με --salvage μεταφέρεται ό,τι διαβάζεται. %2")
                          .arg(refusal.damage(), refusal.readableRows())
                          .trimmed());
    }
}

ExitStatus takeOverOlderBook(Arguments& arguments, const ToolContext& context)
{
    const bool salvages = arguments.takeFlag(QStringLiteral("--salvage"));
    const QString older = arguments.takeWord(QStringLiteral("ο φάκελος του παλιού βιβλίου"));
    const QString target = arguments.takeWord(QStringLiteral("ο φάκελος του νέου βιβλίου"));
    arguments.finish();

    const QString from = QFileInfo(older).absoluteFilePath();
    const QString to = QFileInfo(target).absoluteFilePath();
    if (!QFileInfo(from).isDir())
        throw Refused(QStringLiteral("Δεν υπάρχει φάκελος %1.").arg(from));
    refuseExistingBook(BookFiles(to));
    const LegacyFiles files(from);
    warnOfLocks(files, context);

    JetDamage damage(salvages ? JetDamage::Answer::Collect : JetDamage::Answer::Refuse);
    const ImportTally tally = importBook(files, to, damage, context);
    context.out << "Το βιβλίο μεταφέρθηκε στον φάκελο " << to.toStdString() << "\n\n";
    context.out << importReport(tally, damage).toStdString();
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
        takeOverOlderBook};
}

} // namespace lorvan
