#pragma once

#include <QByteArray>
#include <QString>

namespace lorvan {

/// Text in the Greek 8-bit code page used by the path file and the usage marker. One byte per character; a character
/// that the code page lacks becomes "?".
[[nodiscard]] QByteArray toWindows1253(QStringView text);

/// True when every character of the text exists in the code page.
[[nodiscard]] bool fitsWindows1253(QStringView text);

/// Bytes that have no character in the code page become U+FFFD.
[[nodiscard]] QString fromWindows1253(QByteArrayView bytes);

} // namespace lorvan
