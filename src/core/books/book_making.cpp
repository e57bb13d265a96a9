#include "books/book_making.h"

#include "book/opening_balance_rules.h"
#include "book/staging_folder.h"
#include "books/book_choice.h"
#include "books/new_book.h"
#include "books/ready_sets.h"
#include "demo/demo_book.h"
#include "platform/engine/transaction.h"
#include "platform/files/file.h"
#include "platform/stop_check.h"
#include "platform/work.h"
#include "platform/work_watch.h"
#include "proof/opening_balance.h"
#include "users/user_accounts.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace lorvan {
namespace {

constexpr qsizetype longestHeading = 200;

bool hasOpening(const NewBookDraft& draft)
{
    return !draft.openingAmount.trimmed().isEmpty();
}

std::optional<NewBookFault> faultOfOpening(const NewBookDraft& draft, QDate today)
{
    const auto reading = readOpeningBalance(draft.openingDay, draft.openingAmount, today);
    if (const auto* const fault = std::get_if<OpeningBalanceFault>(&reading)) {
        if (*fault == OpeningBalanceFault::DateIsInvalid)
            return NewBookFault{NewBookField::OpeningDay,
                QStringLiteral("Η ημέρα του υπολοίπου δεν είναι ημερομηνία. Δώστε την όπως 05-12-2005.")};
        return NewBookFault{NewBookField::OpeningAmount,
            QStringLiteral("Το υπόλοιπο δεν είναι ποσό. Δώστε το όπως 1.234,56 ή αφήστε το κενό.")};
    }
    if (std::get<OpeningBalance>(reading).day > today)
        return NewBookFault{NewBookField::OpeningDay, QStringLiteral("Η ημέρα του υπολοίπου δεν έχει έρθει ακόμη.")};
    return std::nullopt;
}

/// The folder, or the one in which it will be made.
QFileInfo presentPartOf(const QString& folder)
{
    QFileInfo present(folder);
    while (!present.exists() && !present.isRoot())
        present = QFileInfo(present.absolutePath());
    return present;
}

/// What a process that was killed has left there does not count.
bool isFree(const QString& folder)
{
    const QFileInfo info(folder);
    if (info.isSymLink() || (info.exists() && !info.isDir()))
        return false;
    try {
        if (info.exists())
            removeStagingRemainders(BookFiles(folder));
    } catch (const FileError&) {
        return false;
    }
    return !info.exists() || faultOfFolder(folder).isEmpty();
}

NewBookField fieldOf(FirstUserField field)
{
    switch (field) {
    case FirstUserField::Name:
        return NewBookField::UserName;
    case FirstUserField::Password:
        return NewBookField::Password;
    case FirstUserField::Repeated:
        return NewBookField::Repeated;
    }
    return NewBookField::UserName;
}

void fill(Book& book, const NewBookDraft& draft, const Authority& authority)
{
    Connection both = book.openBoth();
    addUser(both, authority, draft.user.name, draft.user.password, draft.user.rights);
    if (draft.readySet)
        addReadySet(book.main(), authority, readySets().at(*draft.readySet));
    if (!hasOpening(draft))
        return;
    const auto opening = readOpeningBalance(draft.openingDay, draft.openingAmount, authority.now().date());
    Transaction transaction(book.main(), authority);
    setOpeningBalance(book.main(), authority, std::get<OpeningBalance>(opening));
    transaction.commit();
}

} // namespace

QString folderFromTyped(const QString& typed)
{
    const QString path = typed.trimmed();
    if (path.isEmpty())
        return {};
    if (path == u'~' || path.startsWith(u"~/"))
        return QDir::cleanPath(QDir::homePath() + path.mid(1));
    return QDir::cleanPath(QDir(QDir::homePath()).absoluteFilePath(path));
}

QString faultOfFolder(const QString& folder)
{
    if (folder.isEmpty())
        return QStringLiteral("Δώστε τον φάκελο του βιβλίου.");
    try {
        refuseUnrecordable(folder);
    } catch (const Refused& refusal) {
        return QString::fromUtf8(refusal.what());
    }
    const QFileInfo info(folder);
    if (info.isSymLink() && !info.exists())
        return QStringLiteral("Το %1 είναι σύνδεσμος που δεν οδηγεί πουθενά.").arg(folder);
    if (const QFileInfo present = presentPartOf(folder); !present.isDir())
        return QStringLiteral("Το %1 είναι αρχείο, όχι φάκελος.").arg(present.filePath());
    else if (!present.isWritable())
        return QStringLiteral("Στον φάκελο %1 δεν επιτρέπεται να γράψετε.").arg(present.filePath());
    if (!info.exists())
        return {};
    const QDir present(folder);
    if (QFileInfo::exists(BookFiles(folder).mainDatabase()))
        return QStringLiteral("Στον φάκελο %1 υπάρχει ήδη βιβλίο. Ανοίξτε το με το «Υπάρχον βιβλίο» ή δώστε άλλον"
                              " φάκελο.")
            .arg(folder);
    const QStringList entries = present.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    if (!entries.isEmpty())
        return QStringLiteral("Ο φάκελος %1 έχει άλλα αρχεία. Δώστε έναν άδειο ή το όνομα ενός νέου.").arg(folder);
    return {};
}

QString faultOfHeading(const QString& heading)
{
    if (heading.trimmed().isEmpty())
        return QStringLiteral("Δώστε τον τίτλο του βιβλίου.");
    if (heading.size() > longestHeading)
        return QStringLiteral("Ο τίτλος έχει %1 χαρακτήρες· χωρούν ως %2.").arg(heading.size()).arg(longestHeading);
    if (heading.contains(u'\n') || heading.contains(u'\r'))
        return QStringLiteral("Ο τίτλος χωρά σε μία γραμμή.");
    return {};
}

std::optional<NewBookFault> faultOf(const NewBookDraft& draft, QDate today)
{
    if (const QString fault = faultOfHeading(draft.heading); !fault.isEmpty())
        return NewBookFault{NewBookField::Heading, fault};
    if (const QString fault = faultOfFolder(draft.folder); !fault.isEmpty())
        return NewBookFault{NewBookField::Folder, fault};
    if (const auto fault = faultOf(draft.user))
        return NewBookFault{fieldOf(fault->field), fault->text};
    return hasOpening(draft) ? faultOfOpening(draft, today) : std::nullopt;
}

void makeBook(const NewBookDraft& draft, const Clock& clock)
{
    NewBook made(draft.folder);
    fillHidden([&] { fill(made.book(), draft, Authority::administrator(clock)); });
    decideOrGiveUp();
    made.keep();
}

void makeSampleBook(const QString& folder, QDate today, std::uint64_t seed)
{
    NewBook made(folder);
    continueOrGiveUp();
    fillHidden([&] { fillDemoBook(made.book(), today, seed); });
    decideOrGiveUp();
    made.keep();
}

QString freeFolder(const QString& name)
{
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    QString folder = documents.absoluteFilePath(name);
    for (int number = 2; !isFree(folder); ++number)
        folder = documents.absoluteFilePath(QStringLiteral("%1 %2").arg(name).arg(number));
    return folder;
}

} // namespace lorvan
