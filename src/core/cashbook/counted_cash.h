#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QJsonObject>
#include <QString>

#include <array>
#include <cstdint>
#include <optional>

namespace lorvan {

class Authority;
class Connection;

/// Cash that was counted by notes and coins. Counts are never negative.
class CountedCash {
public:
    static constexpr std::size_t notes = 7;
    /// The worth of each note and then of each coin in cents, falling.
    static constexpr std::array<std::int64_t, 15> worths{
        50'000, 20'000, 10'000, 5'000, 2'000, 1'000, 500, 200, 100, 50, 20, 10, 5, 2, 1};
    static constexpr std::int64_t most = 999'999; ///< Of one kind.

    /// The form of `seals.counted`, see docs/data-files.md. No value if the text is none of it.
    [[nodiscard]] static std::optional<CountedCash> fromJson(const QString& json);
    [[nodiscard]] QString toJson() const;
    /// The same object: what the journal tells of a count.
    [[nodiscard]] QJsonObject state() const;

    /// "500" for a note, "2" or "0,50" for a coin, in euros.
    [[nodiscard]] static QString worthText(std::size_t kind);

    void setCount(std::size_t kind, std::int64_t count) { m_counts.at(kind) = count; }
    [[nodiscard]] std::int64_t count(std::size_t kind) const { return m_counts.at(kind); }
    [[nodiscard]] Currency amount(std::size_t kind) const;
    [[nodiscard]] Currency sum() const;

    friend bool operator==(const CountedCash&, const CountedCash&) = default;

private:
    std::array<std::int64_t, worths.size()> m_counts{};
};

/// Stores what was counted at the end of the day with its last seal, with a row in the journal, in one transaction over
/// `book`, which holds both databases or, if the main one cannot be written, only the auxiliary one. Writes nothing if
/// it is there already. Returns false if the day has no seal. Throws NotPermitted without the right to close, and
/// SqlError.
bool keepCountedCash(Connection& book, const Authority& authority, QDate day, const CountedCash& counted);

/// What was counted last for the day, whichever of its seals it was stored with.
[[nodiscard]] std::optional<CountedCash> countedCashOf(Connection& auxiliary, QDate day);

} // namespace lorvan
