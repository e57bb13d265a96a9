#include "books/backup_content.h"

#include "backup/book_backup.h"
#include "backup/book_restore.h"
#include "book/book_files.h"
#include "books/book_look.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "proof/findings_text.h"

#include <QFileInfo>
#include <QLocale>

namespace lorvan {
namespace {

constexpr std::size_t linesOfKind = 3;
const FindingsForm form{QStringLiteral("η «Διόρθωση»"), linesOfKind};

QString counted(const QString& what, std::int64_t number)
{
    return what + QStringLiteral(": ") + QLocale(QLocale::Greek, QLocale::Greece).toString(static_cast<qint64>(number));
}

QStringList bookLines(const BookTotals& totals, QDate lastClosed)
{
    QStringList lines;
    if (totals.firstDay != 0)
        lines += QStringLiteral("Ημέρες: από %1 έως %2, τελευταίο υπόλοιπο %3")
                     .arg(storedDayText(totals.firstDay), storedDayText(totals.lastDay),
                         exactAmountText(totals.lastBalance));
    lines += counted(QStringLiteral("Κινήσεις"), totals.movements.rows);
    lines += counted(QStringLiteral("Κωδικοί"), totals.codes) + QStringLiteral(", ")
        + counted(QStringLiteral("ομάδες"), totals.groups);
    lines += counted(QStringLiteral("Χρήστες"), totals.users);
    lines += lastClosed.isValid() ? QStringLiteral("Τελευταίο κλείσιμο: ") + dateText(lastClosed)
                                  : QStringLiteral("Καμία ημέρα δεν έχει κλείσει.");
    return lines;
}

QStringList checkLines(const BookFindings& findings)
{
    if (findings.isInOrder())
        return {QStringLiteral("Έλεγχος: το βιβλίο στο αντίγραφο είναι εντάξει.")};
    QStringList lines{QStringLiteral("Έλεγχος: το βιβλίο στο αντίγραφο έχει λάθη.")};
    for (const CheckLine& line : findingLines(findings, form))
        lines += line.text;
    return lines;
}

} // namespace

BackupContent lookIntoBackup(const QString& backup, const BookFiles& place, const StepProgress& progress)
{
    const auto restored = unpackBackup(backup, place, progress);
    const QFileInfo file(backup);
    BackupContent content{backup, file.size(), file.lastModified(), {}, {}};
    content.check = checkRestored(*restored, progress, [&content](Connection& book) {
        auto last = book.prepare("SELECT max(hmeraklhsimatos) FROM klhsimotameioy");
        if (last.step())
            content.lastClosed = dateFromStored(last.integer(0));
    });
    return content;
}

QStringList contentLines(const BackupContent& content, const QString& heading)
{
    QStringList lines{QStringLiteral("%1, %2, γράφτηκε στις %3")
                          .arg(QFileInfo(content.path).fileName(), sizeText(content.size),
                              content.written.toString(QStringLiteral("dd-MM-yyyy HH:mm")))};
    if (!heading.isEmpty())
        lines += QStringLiteral("Τίτλος: ") + heading.simplified();
    if (!content.check)
        return lines << QStringLiteral("Είναι παλαιότερης έκδοσης: το περιεχόμενό του φαίνεται όταν ανοίξει.");
    return lines + bookLines(content.check->totals, content.lastClosed) + checkLines(content.check->findings);
}

QString headingOfBackup(const QString& backup, const std::vector<KnownBook>& books)
{
    const QString folder = QFileInfo(backup).absolutePath();
    for (const KnownBook& known : books) {
        if (isSameBook(backupFolder(BookFiles(known.settings.dataFolder)), folder))
            return known.settings.heading;
    }
    return {};
}

} // namespace lorvan
