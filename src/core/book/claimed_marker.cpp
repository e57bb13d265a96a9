#include "book/claimed_marker.h"

#include "book/book_files.h"
#include "book/lock_trust.h"
#include "platform/work.h"

#include <QFileInfo>

#include <atomic>

namespace lorvan {
namespace {

std::atomic<bool> isLeftInUse = false;

void claimFree(UsageMarker& marker, const BookFiles& files)
{
    if (QFileInfo(files.usageMarker()).isSymLink())
        throw Refused(QStringLiteral("Το αρχείο χρήσης %1 δεν είναι αρχείο αλλά σύνδεσμος προς άλλο αρχείο, και δεν"
                                     " ακολουθείται. Σβήστε τον σύνδεσμο και ανοίξτε το βιβλίο με το πρόγραμμα. Δεν"
                                     " έγινε τίποτα.")
                          .arg(files.usageMarker()));
    if (!BookFiles::exists(files.usageMarker()))
        throw Refused(QStringLiteral("Λείπει το αρχείο χρήσης %1. Ανοίξτε το βιβλίο με το πρόγραμμα: ο διαχειριστής το"
                                     " επαναφέρει με το ξεκλείδωμα της βάσης. Δεν έγινε τίποτα.")
                          .arg(files.usageMarker()));
    if (const auto holder = marker.guardChange())
        throw Refused(QStringLiteral("Το βιβλίο χρησιμοποιείται από τον χρήστη %1 στον υπολογιστή %2. Κλείστε το"
                                     " πρόγραμμα εκεί και δοκιμάστε ξανά. Αν κανείς δεν δουλεύει στο βιβλίο, ο"
                                     " διαχειριστής το ξεκλειδώνει από το πρόγραμμα. Δεν έγινε τίποτα.")
                          .arg(holder->user, holder->computer));
    if (!marker.owns())
        throw Refused(QStringLiteral("Το αρχείο χρήσης %1 δεν έχει έγκυρο περιεχόμενο. Ο διαχειριστής το επαναφέρει"
                                     " με το ξεκλείδωμα της βάσης από το πρόγραμμα. Δεν έγινε τίποτα.")
                          .arg(files.usageMarker()));
}

} // namespace

ClaimedMarker::ClaimedMarker(const BookFiles& files)
    : m_marker(files.usageMarker(), machineIdentity())
{
    if (BookFiles::exists(files.usageMarker())) {
        if (lockReachOf(files) == LockReach::Nobody)
            throw LocksUntrusted();
        (void)m_marker.heal();
    }
    try {
        claimFree(m_marker, files);
    } catch (const std::exception&) {
        release();
        throw;
    }
}

ClaimedMarker::~ClaimedMarker()
{
    release();
}

void ClaimedMarker::release() noexcept
{
    try {
        m_marker.retire();
    } catch (const std::exception&) {
        isLeftInUse = true;
    }
}

bool takeMarkerLeftInUse() noexcept
{
    return isLeftInUse.exchange(false);
}

} // namespace lorvan
