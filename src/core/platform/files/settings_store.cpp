#include "platform/files/settings_store.h"

#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/files/system_reason.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <unistd.h>
#include <utility>

namespace lorvan {
namespace {

constexpr std::chrono::milliseconds lockTimeout{5000};
constexpr int hexDigits = 4;

/// The lines without their line feeds. They are kept as bytes, since a file edited by hand may contain anything.
using Lines = QList<QByteArray>;

bool isSame(const QString& left, const QString& right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

QString textOf(const QByteArray& line)
{
    return QString::fromUtf8(line).trimmed();
}

std::optional<QString> sectionIn(const QString& line)
{
    const qsizetype end = line.indexOf(u']');
    return line.startsWith(u'[') && end > 0 ? std::optional(line.sliced(1, end - 1).trimmed()) : std::nullopt;
}

std::optional<QString> keyIn(const QString& line)
{
    const qsizetype end = line.indexOf(u'=');
    const bool isComment = line.startsWith(u';') || line.startsWith(u'#');
    return end > 0 && !isComment ? std::optional(line.first(end).trimmed()) : std::nullopt;
}

bool isControl(QChar character)
{
    return character < u' ' || character == u'\x7f';
}

bool needsQuotes(const QString& value)
{
    return value.startsWith(u'"') || value.trimmed() != value || !value.isValidUtf16()
        || std::any_of(value.begin(), value.end(), isControl);
}

QString quoted(const QString& value)
{
    QString text;
    for (const QChar character : value) {
        if (isControl(character) || character.isSurrogate())
            text += QStringLiteral("\\u%1").arg(character.unicode(), hexDigits, 16, QChar(u'0'));
        else if (character == u'"' || character == u'\\')
            text += QStringLiteral("\\") + character;
        else
            text += character;
    }
    return u'"' + text + u'"';
}

/// Removes an escape, whose backslash is already gone, from the start of the text. Without one, the backslash stands
/// for itself.
QString takeEscaped(QStringView& rest)
{
    if (rest.startsWith(u'"') || rest.startsWith(u'\\')) {
        const QChar character = rest.front();
        rest = rest.sliced(1);
        return character;
    }
    bool isCode = false;
    const ushort code = rest.mid(1, hexDigits).toUShort(&isCode, 16);
    if (!rest.startsWith(u'u') || rest.size() <= hexDigits || !isCode)
        return QStringLiteral("\\");
    rest = rest.sliced(1 + hexDigits);
    return QChar(code);
}

/// The text between the quotes; if the second quote is missing, everything after the first.
QString unquoted(QStringView rest)
{
    QString value;
    for (rest = rest.sliced(1); !rest.isEmpty() && !rest.startsWith(u'"');) {
        const QChar character = rest.front();
        rest = rest.sliced(1);
        value += character == u'\\' ? takeEscaped(rest) : QString(character);
    }
    return value;
}

QString valueIn(const QString& line)
{
    const QString value = line.sliced(line.indexOf(u'=') + 1).trimmed();
    return value.startsWith(u'"') ? unquoted(value) : value;
}

QByteArray lineOf(const Setting& setting)
{
    return (setting.key + u'=' + (needsQuotes(setting.value) ? quoted(setting.value) : setting.value)).toUtf8();
}

/// Indexes of lines; -1 for none.
struct Place {
    qsizetype entry = -1;
    qsizetype sectionEnd = -1; ///< one past the last line of the section that is not blank
};

Place find(const Lines& lines, const QString& section, const QString& key)
{
    Place place;
    bool isInside = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString line = textOf(lines[i]);
        if (const auto name = sectionIn(line))
            isInside = isSame(*name, section);
        else if (const auto entry = keyIn(line); isInside && place.entry < 0 && entry && isSame(*entry, key))
            place.entry = i;
        if (isInside && !line.isEmpty())
            place.sectionEnd = i + 1;
    }
    return place;
}

void append(Lines& lines, const Setting& setting)
{
    if (lines.last().isEmpty())
        lines.removeLast(); // nothing after the last line feed counts as a line
    if (!lines.isEmpty())
        lines.append(QByteArray());
    lines.append((u'[' + setting.section + u']').toUtf8());
    lines.append(lineOf(setting));
    lines.append(QByteArray());
}

void put(Lines& lines, const Setting& setting)
{
    const Place place = find(lines, setting.section, setting.key);
    if (place.entry < 0 && place.sectionEnd < 0)
        append(lines, setting);
    else if (place.entry < 0)
        lines.insert(place.sectionEnd, lineOf(setting));
    else if (valueIn(textOf(lines[place.entry])) != setting.value)
        lines[place.entry] = lineOf(setting);
}

QByteArray withSettings(const QByteArray& content, const std::vector<Setting>& settings)
{
    Lines lines = content.split('\n');
    for (const Setting& setting : settings)
        put(lines, setting);
    return lines.join('\n');
}

QString pathOfUser()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/Lorvan/Lorvan.ini");
}

} // namespace

SettingsStore::SettingsStore()
    : SettingsStore(pathOfUser())
{
}

SettingsStore::SettingsStore(QString path)
    : m_path(std::move(path))
{
}

std::optional<QString> SettingsStore::value(const QString& section, const QString& key) const
{
    const Lines lines = content().split('\n');
    const Place place = find(lines, section, key);
    return place.entry < 0 ? std::nullopt : std::optional(valueIn(textOf(lines[place.entry])));
}

QString SettingsStore::value(const QString& section, const QString& key, const QString& fallback) const
{
    return value(section, key).value_or(fallback);
}

void SettingsStore::write(const std::vector<Setting>& settings) const
{
    const QByteArray earlier = content();
    if (withSettings(earlier, settings) == earlier)
        return;
    try {
        makeFolders(QFileInfo(m_path).path(), FileAccess::Owner);
    } catch (const FileError& error) {
        fail(QStringLiteral("ο φάκελός του δεν δημιουργείται: ") + error.reason());
    }
    QLockFile lock(m_path + QStringLiteral(".lock"));
    if (!lock.tryLock(static_cast<int>(lockTimeout.count())))
        fail(QStringLiteral("δεν γράφεται δίπλα του το αρχείο κλειδώματος"));
    try {
        replaceFile(m_path, withSettings(content(), settings), FileAccess::Owner);
    } catch (const FileError& error) {
        fail(error.reason());
    }
}

QByteArray SettingsStore::content() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (::access(QFile::encodeName(m_path).constData(), F_OK) != 0 && (errno == ENOENT || errno == ENOTDIR))
            return {};
        fail(systemReason(file.errorString()));
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        fail(systemReason(file.errorString()));
    return bytes;
}

void SettingsStore::fail(const QString& trouble) const
{
    throw SettingsError((m_path + QStringLiteral(": ") + trouble).toStdString());
}

} // namespace lorvan
