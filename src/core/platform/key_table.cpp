#include "platform/key_table.h"

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

KeyEntry entry(KeyUse use, KeyPlace place, const QString& keys, const QString& does)
{
    return {use, place, keys.split(u' '), does};
}

KeyEntry listed(KeyPlace place, const QString& keys, const QString& does)
{
    return entry(KeyUse::Listed, place, keys, does);
}

std::vector<KeyEntry> mainWindowKeys()
{
    using enum KeyPlace;
    return {
        listed(MainWindow, QStringLiteral("Ctrl+PgUp Ctrl+PgDown"), QStringLiteral("άλλη καρτέλα")),
        listed(MainWindow, QStringLiteral("Ctrl+Z"), QStringLiteral("αναίρεση")),
        listed(MainWindow, QStringLiteral("Ctrl+Y Ctrl+Shift+Z"), QStringLiteral("ξανά ό,τι αναιρέθηκε")),
        listed(MainWindow, QStringLiteral("Ctrl+F"), QStringLiteral("αναζήτηση σε όλες τις κινήσεις")),
        listed(MainWindow, QStringLiteral("Alt+Left"),
            QStringLiteral("πίσω στο παράθυρο από όπου πήγατε σε μια κίνηση ή ημέρα")),
        listed(MainWindow, QStringLiteral("Ctrl+H"), QStringLiteral("ιστορικό")),
        entry(KeyUse::Picture, MainWindow, QStringLiteral("Ctrl+G"), QStringLiteral("η εικόνα του βιβλίου")),
        entry(KeyUse::Card, MainWindow, QStringLiteral("Ctrl+K"), QStringLiteral("η καρτέλα του κωδικού")),
        entry(KeyUse::Notices, MainWindow, QStringLiteral("F8"),
            QStringLiteral("όσα λέει η γραμμή κάτω από τις καρτέλες, σε μια λίστα")),
        listed(MainWindow, QStringLiteral("F10"), QStringLiteral("εργαλεία")),
        entry(KeyUse::Manual, MainWindow, QStringLiteral("F1"), QStringLiteral("οι οδηγίες, στο κεφάλαιο της σελίδας")),
        entry(KeyUse::KeySheet, MainWindow, QStringLiteral("Shift+F1"), QStringLiteral("τα πλήκτρα, σε μια σελίδα")),
    };
}

std::vector<KeyEntry> cashPageKeys()
{
    using enum KeyPlace;
    return {
        entry(KeyUse::Store, CashPage, QStringLiteral("Ctrl+Return"),
            QStringLiteral("«Εισαγωγή», ή «Μεταβολή» της κίνησης που διορθώνετε, από όποιο πεδίο και αν είστε")),
        entry(KeyUse::PreviewDay, CashPage, QStringLiteral("Ctrl+P"),
            QStringLiteral("προεπισκόπηση του ταμείου της ημέρας που φαίνεται")),
        listed(CashPage, QStringLiteral("Esc"), QStringLiteral("αφήνει την κίνηση που διορθώνετε")),
        entry(KeyUse::PreviousCashDay, DateOrEmptyCode, QStringLiteral("PgUp"),
            QStringLiteral("η προηγούμενη ημέρα με ταμείο")),
        entry(KeyUse::NextCashDay, DateOrEmptyCode, QStringLiteral("PgDown"),
            QStringLiteral("η επόμενη ημέρα με ταμείο")),
        entry(KeyUse::PreviousMonth, DateOrEmptyCode, QStringLiteral("Shift+PgUp"), QStringLiteral("ένας μήνας πίσω")),
        entry(KeyUse::NextMonth, DateOrEmptyCode, QStringLiteral("Shift+PgDown"), QStringLiteral("ένας μήνας εμπρός")),
        entry(KeyUse::PreviousDay, DateOrEmptyCode, QStringLiteral("Alt+PgUp"), QStringLiteral("μία ημέρα πίσω")),
        entry(KeyUse::NextDay, DateOrEmptyCode, QStringLiteral("Alt+PgDown"), QStringLiteral("μία ημέρα εμπρός")),
        entry(KeyUse::Today, DateOrEmptyCode, QStringLiteral("Alt+Home"), QStringLiteral("σήμερα")),
        entry(KeyUse::OpenCalendar, DateField, QStringLiteral("F4 Alt+Down"), QStringLiteral("το ημερολόγιο")),
        entry(KeyUse::OpenTape, AmountField, QStringLiteral("F3"),
            QStringLiteral("ταινία: ποσά το ένα κάτω από το άλλο, που το άθροισμά τους μπαίνει στο πεδίο")),
        entry(KeyUse::GoToDayList, CodeField, QStringLiteral("Up"),
            QStringLiteral("στον πίνακα των κινήσεων, όταν ο κωδικός είναι άδειος")),
        listed(CodeOffers, QStringLiteral("Down Return"), QStringLiteral("στη λίστα· διαλέγει τον κωδικό")),
        listed(CodeOffers, QStringLiteral("Esc"), QStringLiteral("κλείνει τη λίστα")),
        entry(KeyUse::AcceptSuggestion, DescriptionField, QStringLiteral("Right"),
            QStringLiteral("δέχεται την περιγραφή που προτείνεται πίσω από όσα γράψατε")),
        entry(KeyUse::ListPreviousCashDay, DayList, QStringLiteral("Ctrl+Up"),
            QStringLiteral("η προηγούμενη ημέρα με ταμείο")),
        entry(
            KeyUse::ListNextCashDay, DayList, QStringLiteral("Ctrl+Down"), QStringLiteral("η επόμενη ημέρα με ταμείο")),
        entry(KeyUse::OpenLine, DayList, QStringLiteral("F2"),
            QStringLiteral("φέρνει την κίνηση στα πεδία για διόρθωση")),
        entry(KeyUse::Copy, DayList, QStringLiteral("Ctrl+D"), QStringLiteral("την αντιγράφει σε μια νέα κίνηση")),
        entry(KeyUse::CopyToToday, DayList, QStringLiteral("Ctrl+Shift+D"),
            QStringLiteral("την αντιγράφει σε μια νέα σημερινή κίνηση")),
    };
}

std::vector<KeyEntry> reportKeys()
{
    using enum KeyPlace;
    return {
        listed(Tape, QStringLiteral("Return +"), QStringLiteral("νέα γραμμή· με - μια που αφαιρείται")),
        listed(Tape, QStringLiteral("F3 Ctrl+Return"), QStringLiteral("βάζει το άθροισμα στο πεδίο")),
        listed(Tape, QStringLiteral("Esc"), QStringLiteral("κλείνει την ταινία, το πεδίο μένει όπως ήταν")),
        listed(PrintingPage, QStringLiteral("1 2 3 4 5 6 7 8 9"), QStringLiteral("η εκτύπωση με αυτόν τον αριθμό")),
        listed(PrintingPage, QStringLiteral("F2"), QStringLiteral("προεπισκόπηση της εκτύπωσης")),
        listed(Preview, QStringLiteral("PgUp PgDown"), QStringLiteral("άλλη σελίδα")),
        entry(KeyUse::CarrySums, Preview, QStringLiteral("Ctrl+M"), QStringLiteral("μεταφορές των αθροισμάτων")),
        listed(Preview, QStringLiteral("Home End"), QStringLiteral("η πρώτη, η τελευταία σελίδα")),
        listed(Preview, QStringLiteral("Ctrl++ Ctrl+-"), QStringLiteral("μεγαλύτερα, μικρότερα")),
        listed(Preview, QStringLiteral("Ctrl+0"), QStringLiteral("φυσικό μέγεθος")),
        listed(Preview, QStringLiteral("Ctrl+F"), QStringLiteral("εύρεση")),
        listed(Preview, QStringLiteral("F3 Shift+F3"), QStringLiteral("το επόμενο, το προηγούμενο")),
        listed(Preview, QStringLiteral("Return"),
            QStringLiteral("στην κίνηση, στην ημέρα ή στον κωδικό της γραμμής που βρέθηκε (και με διπλό κλικ)")),
        listed(Preview, QStringLiteral("Ctrl+S"), QStringLiteral("αποθήκευση ως PDF")),
        listed(Preview, QStringLiteral("Ctrl+Shift+S"), QStringLiteral("αποθήκευση ως πίνακας, XLSX ή CSV")),
        listed(Preview, QStringLiteral("Ctrl+P"), QStringLiteral("εκτύπωση όλων των σελίδων")),
        listed(Preview, QStringLiteral("Ctrl+E"), QStringLiteral("επιστροφή")),
        listed(History, QStringLiteral("Ctrl+P"), QStringLiteral("προεπισκόπηση όσων ταιριάζουν στα φίλτρα")),
        listed(History, QStringLiteral("F5"), QStringLiteral("διαβάζει ξανά")),
        listed(History, QStringLiteral("Esc"), QStringLiteral("κλείνει το παράθυρο")),
        listed(Search, QStringLiteral("Return"), QStringLiteral("στη λίστα· εκεί (και με F2), στην ημέρα της κίνησης")),
        listed(Search, QStringLiteral("Ctrl+D Ctrl+Shift+D"),
            QStringLiteral("αντιγράφει την κίνηση σε μια νέα, σε μια νέα σημερινή")),
        listed(
            Search, QStringLiteral("Ctrl+K Ctrl+G"), QStringLiteral("η καρτέλα του κωδικού της, η εικόνα του βιβλίου")),
        listed(Search, QStringLiteral("Alt+Down"), QStringLiteral("οι τελευταίες αναζητήσεις")),
        listed(Search, QStringLiteral("Ctrl+P"), QStringLiteral("προεπισκόπηση όσων βρέθηκαν")),
        listed(Search, QStringLiteral("F5 Esc"), QStringLiteral("ψάχνει ξανά· κλείνει το παράθυρο")),
    };
}

std::vector<KeyEntry> figureKeys()
{
    using enum KeyPlace;
    return {
        listed(Picture, QStringLiteral("PgUp PgDown"), QStringLiteral("πιο πριν, πιο μετά")),
        listed(Picture, QStringLiteral("Left Right"), QStringLiteral("σημειώνει το προηγούμενο, το επόμενο")),
        listed(Picture, QStringLiteral("Return"),
            QStringLiteral("ανοίγει το σημειωμένο: τους μήνες, τις ημέρες, το ταμείο της ημέρας, την καρτέλα")),
        listed(Picture, QStringLiteral("Alt+Left"), QStringLiteral("πίσω: από τις ημέρες στους μήνες")),
        listed(Picture, QStringLiteral("Ctrl+P Esc"), QStringLiteral("προεπισκόπηση· κλείνει το παράθυρο")),
        listed(Card, QStringLiteral("Left Right"), QStringLiteral("ο προηγούμενος, ο επόμενος μήνας")),
        listed(Card, QStringLiteral("Return"), QStringLiteral("στις κινήσεις του μήνα· εκεί, στην ημέρα της κίνησης")),
        listed(Card, QStringLiteral("Ctrl+D Ctrl+Shift+D"),
            QStringLiteral("σε κίνηση: την αντιγράφει σε μια νέα κίνηση, με Shift σε σημερινή")),
        listed(Card, QStringLiteral("Esc Alt+Left"), QStringLiteral("κλείνει το παράθυρο")),
    };
}

/// A place inside another one has that one's keys too; at the top stand the windows themselves.
KeyPlace around(KeyPlace place)
{
    switch (place) {
    case KeyPlace::DateField:
    case KeyPlace::CodeField:
        return KeyPlace::DateOrEmptyCode;
    case KeyPlace::DateOrEmptyCode:
    case KeyPlace::AmountField:
    case KeyPlace::DescriptionField:
    case KeyPlace::DayList:
        return KeyPlace::CashPage;
    case KeyPlace::CashPage:
    case KeyPlace::PrintingPage:
        return KeyPlace::MainWindow;
    case KeyPlace::MainWindow:
    case KeyPlace::Preview:
    case KeyPlace::History:
    case KeyPlace::Search:
    case KeyPlace::CodeOffers:
    case KeyPlace::Tape:
    case KeyPlace::Picture:
    case KeyPlace::Card:
        break;
    }
    return place;
}

bool isInside(KeyPlace place, KeyPlace outer)
{
    while (place != outer && around(place) != place)
        place = around(place);
    return place == outer;
}

QString onKeyboard(QString keys)
{
    const std::pair<const char*, const char*> names[] = {{"PgUp", "Page Up"}, {"PgDown", "Page Down"},
        {"Return", "Enter"}, {"Up", "↑"}, {"Down", "↓"}, {"Left", "←"}, {"Right", "→"}};
    const qsizetype lastPart = keys.lastIndexOf(u'+', -2) + 1;
    const QString key = keys.mid(lastPart);
    for (const auto& [portable, shown] : names) {
        if (key == QLatin1String(portable))
            return keys.left(lastPart) + QString::fromUtf8(shown);
    }
    return keys;
}

} // namespace

const std::vector<KeyEntry>& keyTable()
{
    static const auto table = [] {
        std::vector<KeyEntry> all = mainWindowKeys();
        for (const auto& part : {cashPageKeys(), reportKeys(), figureKeys()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return table;
}

const KeyEntry& keyEntry(KeyUse use)
{
    return *std::find_if(keyTable().begin(), keyTable().end(), [use](const KeyEntry& each) { return each.use == use; });
}

QString keyPlaceText(KeyPlace place)
{
    switch (place) {
    case KeyPlace::MainWindow:
        return QStringLiteral("Στο κύριο παράθυρο");
    case KeyPlace::CashPage:
        return QStringLiteral("Στην ημερήσια κίνηση");
    case KeyPlace::DateOrEmptyCode:
        return QStringLiteral("Στην ημερομηνία, και στον κωδικό όταν είναι άδειος");
    case KeyPlace::DateField:
        return QStringLiteral("Στην ημερομηνία");
    case KeyPlace::CodeField:
        return QStringLiteral("Στον κωδικό");
    case KeyPlace::DescriptionField:
        return QStringLiteral("Στην περιγραφή");
    case KeyPlace::AmountField:
        return QStringLiteral("Στα ποσά");
    case KeyPlace::DayList:
        return QStringLiteral("Στον πίνακα των κινήσεων");
    case KeyPlace::PrintingPage:
        return QStringLiteral("Στις εκτυπώσεις");
    case KeyPlace::Preview:
        return QStringLiteral("Στην προεπισκόπηση");
    case KeyPlace::History:
        return QStringLiteral("Στο ιστορικό");
    case KeyPlace::Search:
        return QStringLiteral("Στην αναζήτηση");
    case KeyPlace::CodeOffers:
        return QStringLiteral("Στη λίστα κάτω από τον κωδικό");
    case KeyPlace::Tape:
        return QStringLiteral("Στην ταινία");
    case KeyPlace::Picture:
        return QStringLiteral("Στην εικόνα του βιβλίου");
    case KeyPlace::Card:
        return QStringLiteral("Στην καρτέλα κωδικού");
    }
    return {};
}

QString keysText(const KeyEntry& entry)
{
    QStringList shown;
    for (const QString& keys : entry.keys)
        shown += onKeyboard(keys);
    return shown.join(QStringLiteral(", "));
}

bool placesMeet(KeyPlace one, KeyPlace other)
{
    return isInside(one, other) || isInside(other, one);
}

} // namespace lorvan
