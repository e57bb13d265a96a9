#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

namespace lorvan {

/// What a user enters: one income or expense of a cash day. One of the two amounts is zero.
struct MovementDraft {
    qint32 code = 0; ///< 0: none chosen.
    QDate day;
    QString description;
    Currency income;
    Currency expense;
    Currency memorandum; ///< Moves no balance.
    bool cheque = false;

    friend bool operator==(const MovementDraft&, const MovementDraft&) = default;
};

/// A stored movement, a row of `kinhseis`.
struct Movement : MovementDraft {
    qint64 key = 0; ///< `aa`; movements of a day stand in the order of their keys.
};

} // namespace lorvan
