#include "proof/open_book_check.h"

#include "backup/book_backup.h"
#include "book/book_files.h"
#include "book/lock_trust.h"
#include "platform/authority.h"
#include "platform/engine/steady_reading.h"
#include "platform/engine/transaction.h"
#include "platform/work_watch.h"

#include <QStringList>

namespace lorvan {
namespace {

void add(QStringList& parts, const QString& what, std::int64_t count)
{
    if (count > 0)
        parts += QStringLiteral("%1 %2").arg(what).arg(count);
}

} // namespace

BookCheck checkOpenBook(const BookFiles& book, KeyRing& keys, const CheckProgress& progress)
{
    Connection both = openBoth(book, keys, Connection::Access::ReadOnly);
    BookCheck check;
    check.findings = checkFiles(both, progress);
    if (!isReadable(check.findings))
        return check;
    BookCheck content = checkContent(both, progress);
    content.findings.merge(check.findings);
    return content;
}

CodeAnswer answerFromOpenBook(const BookFiles& book, KeyRing& keys, const QString& typed)
{
    Connection both = openBoth(book, keys, Connection::Access::ReadOnly);
    CodeAnswer answer;
    readSteadily(both, [&] {
        const Transaction reading(both, Transaction::View::Steady);
        answer = answerForCode(both, typed);
    });
    return answer;
}

BookRepair repairOpenBook(
    const BookFiles& book, KeyRing& keys, const Authority& authority, const CheckProgress& progress)
{
    authority.require(Right::ModifyCash);
    {
        const PartOfWork part(QStringLiteral("Γίνεται αντίγραφο ασφαλείας…"));
        (void)makeBackupByHand(book, keys, authority.now(), progress);
    }
    Connection both = openBoth(book, keys, Connection::Access::ReadWrite);
    return repairBook(both, book, keys, authority, progress);
}

QString repairText(const BookRepair& repair)
{
    QStringList parts;
    add(parts, QStringLiteral("ημέρες που διορθώθηκαν"), repair.correctedDays);
    add(parts, QStringLiteral("που προστέθηκαν"), repair.addedDays);
    add(parts, QStringLiteral("που έμειναν με μία γραμμή"), repair.mergedDays);
    add(parts, QStringLiteral("υπόλοιπα ανοίγματος που καταχωρίστηκαν"), repair.keptDifferences);
    return QStringLiteral("Η διόρθωση έγινε: ") + parts.join(QStringLiteral(", ")) + u'.';
}

} // namespace lorvan
