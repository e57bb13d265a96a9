#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace lorvan {

/// The part of the program in which a key works.
enum class KeyPlace {
    MainWindow,
    CashPage,
    DateOrEmptyCode, ///< The date field, and the code while it is empty and its list is shut.
    DateField,
    CodeField,
    DescriptionField,
    AmountField,
    DayList,
    PrintingPage,
    Preview,
    History,
    Search,
    CodeOffers,
    Tape,
    Picture,
    Card,
};

/// What a key does. Those that the program looks up by name; all others are Listed.
enum class KeyUse {
    Listed,
    PreviousCashDay,
    NextCashDay,
    PreviousMonth,
    NextMonth,
    PreviousDay,
    NextDay,
    Today,
    ListPreviousCashDay,
    ListNextCashDay,
    Store,
    GoToDayList,
    OpenLine,
    Copy,
    CopyToToday,
    PreviewDay,
    OpenCalendar,
    OpenTape,
    AcceptSuggestion,
    KeySheet,
    Manual,
    Picture,
    Card,
    CarrySums,
    Notices,
};

struct KeyEntry {
    KeyUse use = KeyUse::Listed;
    KeyPlace place = KeyPlace::MainWindow;
    QStringList keys; ///< In the toolkit's portable form, "Ctrl+Return"; several for the same.
    QString does;
};

/// All keys of the program except those that every program has in a field or list, by place.
[[nodiscard]] const std::vector<KeyEntry>& keyTable();

/// The entry of a use; not for KeyUse::Listed.
[[nodiscard]] const KeyEntry& keyEntry(KeyUse use);

/// "Στο κύριο παράθυρο": the heading above the keys of a place.
[[nodiscard]] QString keyPlaceText(KeyPlace place);

/// The keys of an entry as they stand on a keyboard: "Ctrl+Page Up", "Ctrl+Enter"; several with ", " between.
[[nodiscard]] QString keysText(const KeyEntry& entry);

/// Whether there is a moment at which keys of both places work.
[[nodiscard]] bool placesMeet(KeyPlace one, KeyPlace other);

} // namespace lorvan
