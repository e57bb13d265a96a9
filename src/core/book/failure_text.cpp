#include "book/failure_text.h"

#include "book/book.h"
#include "book/book_files.h"
#include "book/lock_trust.h"
#include "book/pending_restore.h"
#include "book/schema_guard.h"
#include "book/schema_upgrade.h"
#include "marker/usage_marker.h"
#include "platform/authority.h"
#include "platform/currency.h"
#include "platform/engine/sql_error.h"
#include "platform/files/file.h"
#include "platform/files/settings_store.h"
#include "platform/printable_text.h"
#include "platform/work.h"

#include <QFileInfo>

#include <cerrno>

namespace lorvan {
namespace {

QString databaseTrouble(SqlError::Kind kind)
{
    switch (kind) {
    case SqlError::Kind::NotADatabase:
        return QStringLiteral("Ο κωδικός της βάσης δεδομένων είναι λάθος ή το αρχείο της έχει καταστραφεί.");
    case SqlError::Kind::Damaged:
        return QStringLiteral("Το αρχείο της βάσης δεδομένων έχει καταστραφεί.");
    case SqlError::Kind::Busy:
        return QStringLiteral(
            "Η βάση δεδομένων χρησιμοποιείται αυτή τη στιγμή από άλλο πρόγραμμα. Δοκιμάστε ξανά σε λίγο.");
    case SqlError::Kind::DiskFull:
        return QStringLiteral("Ο δίσκος είναι γεμάτος. Ελευθερώστε χώρο και δοκιμάστε ξανά.");
    case SqlError::Kind::ReadOnly:
        return QStringLiteral("Ο φάκελος των δεδομένων είναι μόνο για ανάγνωση.");
    case SqlError::Kind::Replaced:
        return QStringLiteral(
            "Το βιβλίο που έχετε ανοικτό αντικαταστάθηκε στο μεταξύ από αντίγραφο ασφαλείας. Δεν γράφτηκε"
            " τίποτα. Κλείστε το πρόγραμμα και ξεκινήστε το ξανά, για να ανοίξει το νέο βιβλίο.");
    case SqlError::Kind::JournalStands:
        return QStringLiteral("Ένας υπολογιστής διακόπηκε ενώ έγραφε στο βιβλίο· το ξεκλειδώνει ο διαχειριστής.");
    case SqlError::Kind::Interrupted:
        return QStringLiteral("Η ενέργεια διακόπηκε.");
    case SqlError::Kind::CannotOpen:
        return QStringLiteral("Το αρχείο της βάσης δεδομένων δεν ανοίγει.");
    case SqlError::Kind::InputOutput:
        return QStringLiteral("Ο δίσκος ή το δίκτυο δεν αποκρίνεται.");
    case SqlError::Kind::Other:
        break;
    }
    return QStringLiteral("Η βάση δεδομένων δεν δέχτηκε την ενέργεια.");
}

/// Something that has the name of a journal and cannot be one, since the program only makes plain files. Empty if there
/// is none.
QString foreignJournal(const BookFiles& files)
{
    for (const QString& database : {files.mainDatabase(), files.auxiliaryDatabase()}) {
        const QFileInfo journal(database + QStringLiteral("-journal"));
        if (journal.isSymLink() || (journal.exists() && !journal.isFile()))
            return journal.filePath();
    }
    return {};
}

QString holdingComputer(const BookFiles& files)
{
    try {
        const auto holder = UsageMarker::look(files.usageMarker());
        return holder ? holder->identity.computer : QString();
    } catch (const MarkerError&) {
        return {};
    }
}

QString journalTrouble(const SqlError& error)
{
    if (error.file().isEmpty())
        return databaseTrouble(error.kind());
    const BookFiles files(QFileInfo(error.file()).path());
    if (const QString foreign = foreignJournal(files); !foreign.isEmpty())
        return QStringLiteral(
            "Το %1 δεν είναι αρχείο αλλά σύνδεσμος ή φάκελος. Δεν είναι του προγράμματος και εμποδίζει"
            " το βιβλίο να ανοίξει. Μετακινήστε το αλλού.")
            .arg(printable(foreign));
    if (UsageMarker::isUnclaimed(files.usageMarker()))
        return QStringLiteral("Μια αλλαγή έμεινε μισή δίπλα στο βιβλίο. Την παίρνει πίσω το επόμενο ξεκίνημα του"
                              " προγράμματος, ή η εντολή lorvan-data check, από χρήστη που γράφει στον φάκελο των"
                              " δεδομένων.");
    const QString computer = holdingComputer(files);
    return computer.isEmpty()
        ? databaseTrouble(error.kind())
        : QStringLiteral("Ο υπολογιστής %1 διακόπηκε· τον ξεκλειδώνει ο διαχειριστής.").arg(computer);
}

/// Whether the plain text leaves nothing to tell: what was being written does not matter.
bool needsNoMore(SqlError::Kind kind)
{
    return kind == SqlError::Kind::Replaced || kind == SqlError::Kind::DiskFull || kind == SqlError::Kind::ReadOnly
        || kind == SqlError::Kind::Busy;
}

QString plainText(const std::exception& failure)
{
    if (dynamic_cast<const CommitUnknown*>(&failure))
        return QStringLiteral("Ο δίσκος δεν αποκρίνεται, και δεν είναι γνωστό αν η αλλαγή γράφτηκε. Ελέγξτε το πριν τη"
                              " δώσετε ξανά.");
    if (const auto* sql = dynamic_cast<const SqlError*>(&failure))
        return sql->kind() == SqlError::Kind::JournalStands ? journalTrouble(*sql) : databaseTrouble(sql->kind());
    if (const auto* file = dynamic_cast<const FileError*>(&failure); file && file->number() == ENOSPC)
        return databaseTrouble(SqlError::Kind::DiskFull);
    if (dynamic_cast<const FileError*>(&failure))
        return QStringLiteral("Ένα αρχείο δεν διαβάζεται ή δεν γράφεται.");
    if (const auto* told = dynamic_cast<const PlainlyToldFailure*>(&failure))
        return told->plainText();
    if (dynamic_cast<const RestoreUnfinished*>(&failure))
        return QStringLiteral("Η επαναφορά του βιβλίου άρχισε αλλά δεν ολοκληρώθηκε. Θα ολοκληρωθεί μόνη της μόλις"
                              " ξαναξεκινήσει το πρόγραμμα, αφού διορθωθεί η αιτία.");
    if (dynamic_cast<const CurrencyOverflow*>(&failure))
        return QStringLiteral("Το ποσό είναι μεγαλύτερο από όσο μπορεί να κρατήσει το ταμείο.");
    if (dynamic_cast<const BookExists*>(&failure))
        return QStringLiteral("Υπάρχει ήδη το αρχείο %1. Ένα βιβλίο που υπάρχει δεν αντικαθίσταται.")
            .arg(QString::fromUtf8(failure.what()));
    if (dynamic_cast<const LocksUntrusted*>(&failure) || dynamic_cast<const NotPermitted*>(&failure)
        || dynamic_cast<const Refused*>(&failure))
        return QString::fromUtf8(failure.what());
    if (dynamic_cast<const MarkerError*>(&failure))
        return QStringLiteral("Το αρχείο χρήσης lorvan.dat δεν διαβάζεται ή δεν γράφεται.");
    if (dynamic_cast<const SettingsError*>(&failure))
        return QStringLiteral("Το αρχείο με τις επιλογές του χρήστη δεν διαβάζεται ή δεν γράφεται.");
    if (const auto* unknown = dynamic_cast<const UnknownSchemaVersion*>(&failure))
        return QStringLiteral("Η έκδοση %1 της βάσης δεδομένων είναι άγνωστη σε αυτό το πρόγραμμα.")
            .arg(unknown->version());
    if (dynamic_cast<const ForeignObjects*>(&failure))
        return QString::fromUtf8(failure.what());
    return QStringLiteral("Η ενέργεια δεν ολοκληρώθηκε.");
}

} // namespace

QString failureText(const std::exception& failure)
{
    const auto* const sql = dynamic_cast<const SqlError*>(&failure);
    const bool saysAll = (sql && needsNoMore(sql->kind())) || dynamic_cast<const LocksUntrusted*>(&failure)
        || dynamic_cast<const NotPermitted*>(&failure) || dynamic_cast<const ForeignObjects*>(&failure)
        || dynamic_cast<const CurrencyOverflow*>(&failure) || dynamic_cast<const UnknownSchemaVersion*>(&failure)
        || dynamic_cast<const Refused*>(&failure) || dynamic_cast<const BookExists*>(&failure);
    return saysAll
        ? plainText(failure)
        : plainText(failure) + QStringLiteral("\n\n") + printable(QString::fromUtf8(failure.what()), Breaks::Keep);
}

} // namespace lorvan
