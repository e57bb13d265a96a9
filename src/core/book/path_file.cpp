#include "book/path_file.h"

#include "platform/files/durable_files.h"
#include "platform/files/file.h"
#include "platform/windows1253.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

enum Field { FolderField, ColourField, HeadingField, FieldCount };

constexpr qint64 longestFile = 64 * 1024;

/// Removes a quoted field from the start of the text, up to its closing quote; a doubled quote stands for one.
QString takeQuoted(QStringView& rest)
{
    QString value;
    qsizetype i = 1;
    for (; i < rest.size(); ++i) {
        const bool doubled = rest[i] == u'"' && i + 1 < rest.size() && rest[i + 1] == u'"';
        if (rest[i] == u'"' && !doubled)
            break;
        value += rest[i];
        i += doubled;
    }
    rest = rest.sliced(std::min(i + 1, rest.size()));
    return value;
}

/// Removes the text up to the next comma or line end, and that end, from the start.
QString takePlain(QStringView& rest)
{
    const auto isEnd = [](QChar c) { return c == u',' || c == u'\n' || c == u'\r'; };
    const QString value(rest.begin(), std::find_if(rest.begin(), rest.end(), isEnd) - rest.begin());
    rest = rest.sliced(value.size());
    rest = rest.sliced(rest.startsWith(u"\r\n") ? 2 : std::min<qsizetype>(1, rest.size()));
    return value;
}

QString takeField(QStringView& rest)
{
    while (rest.startsWith(u' ') || rest.startsWith(u'\t'))
        rest = rest.sliced(1);
    if (!rest.startsWith(u'"'))
        return takePlain(rest);
    const QString value = takeQuoted(rest);
    takePlain(rest); // anything between the closing quote and the end of the field is ignored
    return value;
}

QString quoted(const QString& value)
{
    return u'"' + QString(value).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString quotedWhereNeeded(const QString& value)
{
    static const QString special = QStringLiteral(",\"\r\n");
    const bool hasSpecial =
        std::any_of(value.begin(), value.end(), [&](const QChar each) { return special.contains(each); });
    return hasSpecial || value.isEmpty() || value != value.trimmed() ? quoted(value) : value;
}

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");

bool hasLetterBeyondAscii(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar each) { return each.unicode() > 0x7F && each.isLetter(); });
}

QString decoded(const QByteArray& bytes)
{
    if (bytes.startsWith(utf8Mark))
        return QString::fromUtf8(QByteArrayView(bytes).sliced(utf8Mark.size()));
    if (const QString text = QString::fromUtf8(bytes); bytes.isValidUtf8() && hasLetterBeyondAscii(text))
        return text;
    return fromWindows1253(bytes);
}

/// In Windows-1253, unless that lacks a character or would be read differently.
QByteArray encoded(const QString& content)
{
    const QByteArray bytes = toWindows1253(content);
    return decoded(bytes) == content ? bytes : utf8Mark.toByteArray() + content.toUtf8();
}

} // namespace

PathFile::PathFile(QString programFolder)
    : m_programFolder(std::move(programFolder))
{
}

QString PathFile::path() const
{
    const QString name = QStringLiteral("DIADROMH.DAT");
    const QDir folder(m_programFolder);
    const auto entries = folder.entryList(QDir::Files | QDir::Hidden);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder.filePath(entry);
    }
    return folder.filePath(QStringLiteral("DIADROMH.dat"));
}

std::optional<QStringList> PathFile::fields() const
{
    QFile file(path());
    QStringList values;
    if (!file.exists())
        return values;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    const QByteArray bytes = file.read(longestFile);
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    const QString content = decoded(bytes);
    QStringView rest = content;
    while (!rest.isEmpty() && values.size() < FieldCount)
        values += takeField(rest);
    return values;
}

DataFolderSettings PathFile::read() const
{
    DataFolderSettings settings;
    const QStringList values = fields().value_or(QStringList());
    settings.dataFolder = values.value(FolderField).trimmed();
    bool isColour = false;
    const int colour = values.value(ColourField).trimmed().toInt(&isColour);
    if (isColour)
        settings.backgroundColour = colour;
    settings.heading = values.value(HeadingField, settings.heading);
    return settings;
}

bool PathFile::writeFolder(const QString& dataFolder) const
{
    return write(dataFolder, {});
}

bool PathFile::replaceFolder(const QString& dataFolder) const
{
    const auto present = fields();
    return present && write(dataFolder, present->mid(ColourField));
}

bool PathFile::replace(const DataFolderSettings& settings) const
{
    return write(settings.dataFolder, {QString::number(settings.backgroundColour), settings.heading});
}

bool PathFile::write(const QString& dataFolder, const QStringList& others) const
{
    if (!fitsWindows1253(dataFolder))
        return false;
    QString content = quotedWhereNeeded(dataFolder) + QStringLiteral("\r\n");
    for (const QString& field : others)
        content += quotedWhereNeeded(field) + QStringLiteral("\r\n");
    try {
        replaceFile(path(), encoded(content), FileAccess::Umask);
        return true;
    } catch (const FileError&) {
        return false;
    }
}

} // namespace lorvan
