#pragma once

#include "journal/journal.h"

#include <QJsonValue>
#include <QString>

#include <vector>

namespace lorvan {

/// How a value is stored in a state of the journal.
enum class JournalForm { Text, Number, Amount, Day, YesNo };

/// A key of such a state and its words for the user.
struct JournalColumn {
    QString name;
    QString label;
    JournalForm form = JournalForm::Text;
    /// How its value stands in a summary.
    enum class Told { WithName, Alone, Never } told = Told::WithName;
    bool isOfChange = false; ///< About the change itself, not a value that the subject had or has.
};

/// The known columns of a row's states, in the order in which they are read; none for a subject of a newer version.
[[nodiscard]] const std::vector<JournalColumn>& journalColumnsOf(const JournalRow& row);

/// A column that is none of these: a day of an opening balance, or one of a newer version, which keeps its name.
[[nodiscard]] JournalColumn otherJournalColumn(const JournalRow& row, const QString& name);

/// Amounts, with four decimals where two do not tell them, and days in Greek form, "ναι" or "όχι"; a value that is not
/// of the form as it is stored. Empty for none.
[[nodiscard]] QString journalValueText(const QJsonValue& value, JournalForm form);

/// True for no value, an empty text, an amount of zero and a "no".
[[nodiscard]] bool saysNothing(const QJsonValue& value, JournalForm form);

} // namespace lorvan
