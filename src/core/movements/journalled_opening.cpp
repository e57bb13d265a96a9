#include "movements/journalled_opening.h"

#include "book/journal_beginning.h"
#include "journal/journal.h"
#include "platform/engine/connection.h"

#include <QJsonDocument>

namespace lorvan {
namespace {

using Known = std::optional<OpeningDifferences>;

Known nothingIf(bool isKnown)
{
    return isKnown ? Known(OpeningDifferences()) : std::nullopt;
}

/// Earlier releases wrote none of those that an import had left.
Known unlessEmpty(OpeningDifferences differences)
{
    return differences.empty() ? std::nullopt : Known(std::move(differences));
}

Known atBeginning(const QJsonObject& state)
{
    const auto isNone = [&](const char* what) { return state[QLatin1String(what)].toInteger(-1) == 0; };
    return nothingIf(isNone(openingRows) || (isNone("kinhseis") && isNone("tameio")));
}

Known after(const QString& action, const QJsonObject& state, Known known)
{
    switch (journalAction(action).value_or(JournalAction::Modify)) {
    case JournalAction::Begin:
        return atBeginning(state);
    case JournalAction::Opening:
    case JournalAction::Accept:
        return differencesIn(state);
    case JournalAction::Clear:
        return OpeningDifferences();
    case JournalAction::Import:
        return state[QStringLiteral("file")].toString().startsWith(QLatin1String("opening_"))
            ? unlessEmpty(differencesIn(state))
            : known;
    case JournalAction::Repair:
        return state[QStringLiteral("keptDifferences")].toInteger() == 0 ? known : std::nullopt;
    default:
        return known;
    }
}

} // namespace

OpeningDifferences differencesIn(const QJsonObject& state)
{
    OpeningDifferences differences;
    for (auto each = state.begin(); each != state.end(); ++each) {
        if (const qint64 day = each.key().toLongLong(); day != 0)
            differences[day] = Currency::fromTenThousandths(each.value().toInteger());
    }
    return differences;
}

std::optional<OpeningDifferences> journalledOpening(Connection& main)
{
    Known known;
    if (!keepsJournal(main))
        return known;
    auto rows = main.prepare("SELECT action, after FROM main.journal WHERE subject='book' ORDER BY id");
    while (rows.step())
        known = after(rows.text(0), QJsonDocument::fromJson(rows.text(1).toUtf8()).object(), std::move(known));
    return known;
}

} // namespace lorvan
