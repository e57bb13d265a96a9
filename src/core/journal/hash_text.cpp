#include "journal/hash_text.h"

#include <openssl/evp.h>

#include <QByteArray>

#include <array>
#include <charconv>
#include <stdexcept>

namespace lorvan {
namespace {

constexpr std::size_t longestNumber = 20; // -9223372036854775808

void require(int result)
{
    if (result != 1)
        throw std::runtime_error("SHA-256 failed");
}

} // namespace

Sha256::Sha256()
    : m_context(EVP_MD_CTX_new())
{
    require(EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr));
}

void Sha256::Free::operator()(evp_md_ctx_st* context) const noexcept
{
    EVP_MD_CTX_free(context);
}

void Sha256::add(std::string_view bytes)
{
    require(EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size()));
}

QString Sha256::hash()
{
    QByteArray digest(EVP_MAX_MD_SIZE, '\0');
    unsigned length = 0;
    require(EVP_DigestFinal_ex(m_context.get(), reinterpret_cast<unsigned char*>(digest.data()), &length));
    return QString::fromLatin1(digest.first(length).toHex());
}

HashText& HashText::add(const char* name, const QString& value)
{
    QByteArray escaped = value.toUtf8();
    if (escaped.contains('\\') || escaped.contains('\n'))
        escaped.replace('\\', "\\\\").replace('\n', "\\n");
    m_text.append(name).append(1, '=').append(escaped.constData(), static_cast<std::size_t>(escaped.size()));
    m_text += '\n';
    return *this;
}

HashText& HashText::add(const char* name, std::int64_t value)
{
    std::array<char, longestNumber> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    m_text.append(name).append(1, '=').append(digits.data(), end).append(1, '\n');
    return *this;
}

HashText& HashText::add(const char* name, const std::optional<QString>& value)
{
    return value ? add(name, *value) : *this;
}

HashText& HashText::add(const char* name, const std::optional<std::int64_t>& value)
{
    return value ? add(name, *value) : *this;
}

QString HashText::hash() const
{
    Sha256 all;
    all.add(m_text);
    return all.hash();
}

} // namespace lorvan
