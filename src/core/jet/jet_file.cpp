#include "jet/jet_file.h"

#include "platform/files/system_reason.h"
#include "platform/stop_check.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace lorvan {
namespace {

constexpr qint64 largestFile = qint64(2) << 30;
constexpr qint64 readAtOnce = 16 << 20;

constexpr qsizetype markOffset = 4;
constexpr QByteArrayView mark("Standard Jet DB\0", 16);
constexpr QByteArrayView markOfLaterFormats("Standard ACE DB\0", 16);

constexpr std::uint64_t versionOffset = 0x14;
constexpr std::uint8_t olderVersion = 0;
constexpr std::uint8_t wantedVersion = 1;

/// The header is masked; a file with unencrypted pages has these bytes in place of the key of its pages.
constexpr std::uint64_t keyOffset = 0x3E;
constexpr QByteArrayView noKey("\xFB\x8A\xBC\x4E", 4);

JetError laterFormat()
{
    return JetError(QStringLiteral("είναι σε νεότερη μορφή από την Jet 4.0 και δεν μεταφέρεται"));
}

QByteArray wholeContent(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw JetError(QStringLiteral("το αρχείο δεν υπάρχει στον φάκελο %1").arg(info.path()));
    if (!info.isFile())
        throw JetError(QStringLiteral("δεν είναι αρχείο"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw JetError(QStringLiteral("το αρχείο δεν διαβάζεται. %1").arg(systemReason(file.errorString())));
    if (file.size() > largestFile)
        throw JetError(QStringLiteral("το αρχείο είναι μεγαλύτερο από 2 GiB"));
    const qint64 size = file.size();
    QByteArray content;
    while (!file.atEnd() && file.error() == QFileDevice::NoError) {
        continueOrGiveUp();
        content += file.read(readAtOnce);
    }
    if (content.size() != size)
        throw JetError(QStringLiteral("διαβάστηκαν %1 από τα %2 byte. %3")
                           .arg(content.size())
                           .arg(size)
                           .arg(systemReason(file.errorString())));
    return content;
}

} // namespace

JetFile JetFile::load(const QString& path, JetDamage& damage)
{
    const QString name = QFileInfo(path).fileName();
    return locating({name, {}, {}, {}, {}}, [&] { return JetFile(name, wholeContent(path), damage); });
}

JetFile::JetFile(QString name, QByteArray content, JetDamage& damage)
    : m_name(std::move(name))
    , m_content(std::move(content))
    , m_pageCount(static_cast<std::uint32_t>(m_content.size() / pageSize))
{
    locating({m_name, {}, {}, {}, {}}, [this] { checkHeader(); });
    const auto left = m_content.size() % pageSize;
    if (left == 0)
        return;
    JetError cut(
        QStringLiteral("το αρχείο είναι κομμένο: η τελευταία σελίδα έχει %1 από τα %2 byte").arg(left).arg(pageSize));
    cut.locate({m_name, {}, m_pageCount, {}, {}});
    damage.meet(cut);
}

void JetFile::checkHeader() const
{
    if (m_content.isEmpty())
        throw JetError(QStringLiteral("το αρχείο είναι κενό"));
    const QByteArray found = m_content.mid(markOffset, mark.size());
    if (found == markOfLaterFormats)
        throw laterFormat();
    if (found != mark)
        throw NotAJetFile(QStringLiteral("δεν είναι βάση δεδομένων της παλαιότερης μορφής (Jet 4.0)"));
    if (m_pageCount == 0)
        throw JetError(QStringLiteral("το αρχείο έχει %1 byte, λιγότερα από μία σελίδα").arg(m_content.size()));
    const JetBytes header = page(0);
    const std::uint8_t version = header.u8(versionOffset);
    if (version == olderVersion)
        throw JetError(QStringLiteral("είναι σε παλαιότερη μορφή (Jet 3) και δεν μεταφέρεται"));
    if (version != wantedVersion)
        throw laterFormat();
    if (header.part(keyOffset, 4).view() != noKey)
        throw JetError(QStringLiteral("οι σελίδες του αρχείου είναι κρυπτογραφημένες και δεν διαβάζονται"));
}

JetBytes JetFile::page(std::uint32_t number) const
{
    if (number >= m_pageCount)
        throw JetError(QStringLiteral("η σελίδα %1 δεν υπάρχει· το αρχείο έχει %2").arg(number).arg(m_pageCount));
    return JetBytes(m_content).part(std::uint64_t(number) * pageSize, pageSize);
}

bool JetFile::isOfKind(std::uint32_t number, PageKind kind) const
{
    return page(number).u8(0) == static_cast<std::uint8_t>(kind);
}

JetBytes JetFile::pageOfKind(std::uint32_t number, PageKind kind) const
{
    const JetBytes found = page(number);
    if (found.u8(0) != static_cast<std::uint8_t>(kind))
        throw JetError(QStringLiteral("η σελίδα %1 είναι είδους %2 αντί για %3")
                           .arg(number)
                           .arg(found.u8(0))
                           .arg(static_cast<int>(kind)));
    return found;
}

} // namespace lorvan
