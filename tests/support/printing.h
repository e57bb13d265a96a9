#pragma once

#include "platform/currency.h"

#include <QDate>
#include <QString>

#include <ostream>

// How values look in a failed expectation.

inline std::ostream& operator<<(std::ostream& stream, const QString& text)
{
    return stream << text.toStdString();
}

inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text << '"';
}

inline void PrintTo(QDate date, std::ostream* stream)
{
    *stream << date.toString(Qt::ISODate);
}

namespace lorvan {

inline void PrintTo(Currency amount, std::ostream* stream)
{
    *stream << amount.tenThousandths() << " ten-thousandths";
}

} // namespace lorvan
