#include "books/book_look.h"

#include "book/book_files.h"
#include "book/failure_text.h"
#include "book/lock_trust.h"
#include "platform/engine/connection.h"
#include "platform/engine/key_ring.h"
#include "platform/engine/sql_error.h"
#include "platform/work.h"
#include "users/user_accounts.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <array>

namespace lorvan {
namespace {

constexpr qint64 kilo = 1024;

bool isDamage(const SqlError& error)
{
    return error.kind() == SqlError::Kind::NotADatabase || error.kind() == SqlError::Kind::Damaged;
}

void readBoth(const BookFiles& files, BookLook& look)
{
    KeyRing keys(bookPassword());
    keys.prepare(files.auxiliaryDatabase());
    Connection main = openBookFile(files.mainDatabase(), keys);
    (void)main.prepare("SELECT count(*) FROM sqlite_master").step();
    Connection auxiliary = openBookFile(files.auxiliaryDatabase(), keys);
    look.hasUsers = !listUsers(auxiliary).empty();
}

/// Without the engine's own words.
QString troubleOf(const BookLook& look)
{
    return look.trouble.section(QStringLiteral("\n\n"), 0, 0);
}

} // namespace

BookLook lookAtBook(const QString& folder)
{
    const BookFiles files(folder);
    BookLook look;
    for (const QString& path : {files.mainDatabase(), files.auxiliaryDatabase(), files.usageMarker()}) {
        const QFileInfo file(path);
        if (!file.exists())
            continue;
        look.lastUse = look.lastUse.isValid() ? std::max(look.lastUse, file.lastModified()) : file.lastModified();
        look.size += path == files.usageMarker() ? 0 : file.size();
    }
    if (!BookFiles::exists(files.mainDatabase()))
        return look;
    look.condition = BookCondition::Ready;
    try {
        if (files.isOldFormat())
            look.condition = BookCondition::OlderFormat;
        else if (BookFiles::exists(files.auxiliaryDatabase()))
            readBoth(files, look);
        else {
            look.condition = BookCondition::Damaged;
            look.trouble = QStringLiteral("Λείπει το αρχείο %1.").arg(files.auxiliaryDatabase());
        }
    } catch (const SqlError& error) {
        look.condition = isDamage(error) ? BookCondition::Damaged : BookCondition::Unreadable;
        look.trouble = failureText(error);
    } catch (const std::exception& failure) {
        look.condition = BookCondition::Unreadable;
        look.trouble = failureText(failure);
    }
    return look;
}

QString adviceOn(const BookLook& look, const QString& folder)
{
    switch (look.condition) {
    case BookCondition::Ready:
        return look.hasUsers
            ? QString()
            : QStringLiteral("Το βιβλίο στον φάκελο %1 δεν έχει ακόμη χρήστες. Προσθέστε τον πρώτο.").arg(folder);
    case BookCondition::Missing:
        return QStringLiteral("Στον φάκελο %1 δεν βρέθηκε βιβλίο. Ίσως λείπει ο δίσκος ή το δίκτυο.").arg(folder);
    case BookCondition::OlderFormat:
        return QStringLiteral(
            "Το βιβλίο στον φάκελο %1 είναι ενός παλαιότερου προγράμματος και πρέπει πρώτα να μεταφερθεί:"
            " «Από παλαιότερο πρόγραμμα».")
            .arg(folder);
    case BookCondition::Damaged:
        return troubleOf(look) + QStringLiteral(" Το βιβλίο επανέρχεται «Από αντίγραφο».");
    case BookCondition::Unreadable:
        break;
    }
    return troubleOf(look);
}

void refuseUnopenable(const QString& folder)
{
    const BookLook look = lookAtBook(folder);
    if (look.condition != BookCondition::Ready && look.condition != BookCondition::Unreadable)
        throw Refused(adviceOn(look, folder));
}

QString conditionText(BookCondition condition)
{
    switch (condition) {
    case BookCondition::Ready:
        return {};
    case BookCondition::Missing:
        return QStringLiteral("δεν βρέθηκε");
    case BookCondition::OlderFormat:
        return QStringLiteral("παλιά μορφή");
    case BookCondition::Damaged:
        return QStringLiteral("με βλάβη");
    case BookCondition::Unreadable:
        return QStringLiteral("δεν διαβάζεται");
    }
    return {};
}

QString sizeText(qint64 bytes)
{
    static const std::array units{QStringLiteral("KB"), QStringLiteral("MB"), QStringLiteral("GB")};
    double size = static_cast<double>(bytes) / kilo;
    std::size_t unit = 0;
    for (; size >= kilo && unit + 1 < units.size(); ++unit)
        size /= kilo;
    const int decimals = unit > 0 && size < 10 ? 1 : 0;
    return QLocale(QLocale::Greek, QLocale::Greece).toString(size, 'f', decimals) + u' ' + units[unit];
}

} // namespace lorvan
