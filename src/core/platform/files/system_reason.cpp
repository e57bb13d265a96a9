#include "platform/files/system_reason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace lorvan {
namespace {

struct Reason {
    int number;
    const char16_t* text;
};

constexpr std::array reasons{
    Reason{EACCES, u"δεν επιτρέπεται η πρόσβαση"},
    Reason{EBUSY, u"χρησιμοποιείται από άλλο πρόγραμμα"},
    Reason{EDQUOT, u"εξαντλήθηκε ο χώρος που έχει ο χρήστης στον δίσκο"},
    Reason{EEXIST, u"υπάρχει ήδη"},
    Reason{EFBIG, u"το αρχείο είναι μεγαλύτερο από όσο δέχεται ο δίσκος"},
    Reason{EIO, u"ο δίσκος ή το δίκτυο δεν αποκρίνεται"},
    Reason{EISDIR, u"είναι φάκελος"},
    Reason{ELOOP, u"είναι σύνδεσμος"},
    Reason{EMFILE, u"είναι ανοικτά πάρα πολλά αρχεία"},
    Reason{ENAMETOOLONG, u"το όνομα είναι πολύ μεγάλο"},
    Reason{ENODEV, u"ο δίσκος δεν υπάρχει πια"},
    Reason{ENOENT, u"δεν υπάρχει τέτοιο αρχείο ή φάκελος"},
    Reason{ENOMEM, u"δεν φτάνει η μνήμη"},
    Reason{ENOSPC, u"δεν υπάρχει ελεύθερος χώρος στον δίσκο"},
    Reason{ENOTDIR, u"δεν είναι φάκελος"},
    Reason{ENOTEMPTY, u"ο φάκελος δεν είναι κενός"},
    Reason{EPERM, u"δεν επιτρέπεται"},
    Reason{EROFS, u"ο δίσκος είναι μόνο για ανάγνωση"},
    Reason{ESTALE, u"ο φάκελος του δικτύου δεν υπάρχει πια"},
    Reason{ETIMEDOUT, u"το δίκτυο δεν αποκρίνεται"},
};

template <typename IsMeant> QString greek(IsMeant isMeant, const QString& otherwise)
{
    const auto reason = std::find_if(reasons.begin(), reasons.end(), isMeant);
    return reason == reasons.end() ? otherwise : QString::fromUtf16(reason->text);
}

} // namespace

QString systemReason(int number)
{
    return greek([number](const Reason& reason) { return reason.number == number; }, qt_error_string(number));
}

QString systemReason(const QString& words)
{
    const auto areTheWordsOf = [&words](const Reason& reason) {
        return words == qt_error_string(reason.number) || words == QString::fromLocal8Bit(std::strerror(reason.number));
    };
    return greek(areTheWordsOf, words);
}

QString withStop(const QString& reason)
{
    return reason.endsWith(u'.') ? reason : reason + u'.';
}

} // namespace lorvan
