#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <string>
#include <variant>
#include <vector>

namespace lorvan {

/// The amounts from `low` to `high`, both included. An amount typed in cents stands for all that are shown so.
struct SearchedAmounts {
    Currency low;
    Currency high;

    friend bool operator==(const SearchedAmounts&, const SearchedAmounts&) = default;
};

/// The days from `from` to `to`, both included; an open end is the first or the last day there is.
struct SearchedDays {
    QDate from;
    QDate to;

    friend bool operator==(const SearchedDays&, const SearchedDays&) = default;
};

struct SearchedCode {
    qint32 code = 0;

    friend bool operator==(const SearchedCode&, const SearchedCode&) = default;
};

enum class SearchedKind { Income, Expense, Cheque };

/// What a part of a query stands for beside its words; std::monostate if it is nothing but words.
using SearchMeaning = std::variant<std::monostate, SearchedAmounts, SearchedDays, SearchedCode, SearchedKind>;

/// How a part that has a meaning and is found as words too is to be read.
enum class SearchReading { Either, Meaning, Words };

/// One condition of a query: what is found meets its meaning or has all of its words in the description, as the reading
/// says.
struct SearchTerm {
    QString text; ///< As typed, with one blank between its words.
    SearchMeaning meaning;
    QString meaningText; ///< In plain Greek; empty without a meaning.
    std::vector<std::u16string> words; ///< Folded (see foldUtf8()); none if only the meaning counts.
    SearchReading reading = SearchReading::Either;

    [[nodiscard]] bool hasMeaning() const { return !std::holds_alternative<std::monostate>(meaning); }
    /// Whether the user can choose between meaning and words.
    [[nodiscard]] bool isAmbiguous() const { return hasMeaning() && !words.empty(); }
};

/// What the search field says: all conditions have to hold.
struct SearchQuery {
    /// Of more terms than these, the rest is not understood.
    static constexpr std::size_t mostTerms = 40;

    std::vector<SearchTerm> terms;
    /// A longer text is not read at all: there are no terms.
    static constexpr qsizetype mostCharacters = 1000;

    QStringList notUnderstood; ///< As typed.
    bool isTooLong = false;

    [[nodiscard]] bool isEmpty() const { return terms.empty(); }
};

/// Reads what was typed into the search field; a date without a year belongs to that of `today`. Parts are separated by
/// blanks:
///
///     ΛΕΞΗ            a word, at the beginning of words or inside them; letter case and accents do not matter
///     "δύο λέξεις"    a text as it stands, always of the description; a missing quote is at the end
///     214,67          an amount; also >500 <500 >=500 <=500, 100..200, 100.., ..200, and 40-300 unless that is a date
///     3-11  3/11/2025 a day; also a month 11/2025, and 1/2025..3/2025
///     κωδ 205         a code
///     έσοδα  έξοδα  επιταγή
///
/// All but words, quotes, comparisons and ".." are ambiguous. What begins as one of these two and has no sense is not
/// understood, and neither is a text without letters that could be found.
[[nodiscard]] SearchQuery readSearch(QStringView typed, QDate today);

} // namespace lorvan
