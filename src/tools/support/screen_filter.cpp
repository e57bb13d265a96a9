#include "support/screen_filter.h"

#include "platform/printable_text.h"

#include <QStringList>

namespace lorvan {
namespace {

constexpr std::size_t mostWaiting = 1 << 16;
const QString eraseLine = QStringLiteral("\r\x1b[K");

/// The printable text, with the progress bar's own sequences kept.
QString shown(const QString& text)
{
    QStringList parts = text.split(eraseLine);
    for (QString& part : parts)
        part = printable(part, Breaks::Keep);
    return parts.join(eraseLine);
}

} // namespace

ScreenFilter::ScreenFilter(std::ostream& stream)
    : m_stream(stream)
    , m_target(stream.rdbuf(this))
{
}

ScreenFilter::~ScreenFilter()
{
    pass();
    m_target->pubsync();
    m_stream.rdbuf(m_target);
}

ScreenFilter::int_type ScreenFilter::overflow(int_type byte)
{
    if (traits_type::eq_int_type(byte, traits_type::eof()))
        return traits_type::not_eof(byte);
    const char each = traits_type::to_char_type(byte);
    xsputn(&each, 1);
    return byte;
}

std::streamsize ScreenFilter::xsputn(const char* bytes, std::streamsize size)
{
    m_waiting.append(bytes, static_cast<std::size_t>(size));
    if (m_waiting.size() > mostWaiting || m_waiting.ends_with('\n'))
        pass();
    return size;
}

int ScreenFilter::sync()
{
    pass();
    return m_target->pubsync();
}

void ScreenFilter::pass()
{
    const std::string text = shown(QString::fromStdString(m_waiting)).toStdString();
    m_waiting.clear();
    m_target->sputn(text.data(), static_cast<std::streamsize>(text.size()));
}

} // namespace lorvan
