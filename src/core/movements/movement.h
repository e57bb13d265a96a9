#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <optional>

namespace lorvan {

/// What a user enters: one income or expense of a cash day. One of the two amounts is zero.
struct MovementDraft {
    qint32 code = 0; ///< 0 if none is chosen.
    QDate day;
    QString description;
    Currency income;
    Currency expense;
    Currency memorandum; ///< Does not affect the balance.
    bool cheque = false;

    friend bool operator==(const MovementDraft&, const MovementDraft&) = default;
};

/// A stored movement, a row of `kinhseis`.
struct Movement : MovementDraft {
    qint64 key = 0; ///< `aa`; the movements of a day are in the order of their keys.
};

/// What a change made of a movement, which keeps its key and its day: without a former state it was inserted, without a
/// later one deleted.
struct MovementChange {
    std::optional<Movement> before;
    std::optional<Movement> after;

    [[nodiscard]] const Movement& movement() const { return (after ? after : before).value(); }
};

} // namespace lorvan
