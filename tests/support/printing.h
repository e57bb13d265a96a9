#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <ostream>

// How values look in a failed expectation.

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

inline void PrintTo(QDate date, std::ostream* stream)
{
    *stream << date.toString(Qt::ISODate).toStdString();
}

namespace lorvan {

inline void PrintTo(Currency amount, std::ostream* stream)
{
    *stream << amount.tenThousandths() << " ten-thousandths";
}

} // namespace lorvan
