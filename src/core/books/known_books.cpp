#include "books/known_books.h"

#include "book/book_files.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>
#include <utility>

namespace lorvan {
namespace {

const QString section = QStringLiteral("Books");

QString keyOf(qsizetype place)
{
    return QStringLiteral("book%1").arg(place + 1);
}

QString written(const KnownBook& book)
{
    QJsonObject values{{QStringLiteral("folder"), book.settings.dataFolder},
        {QStringLiteral("colour"), book.settings.backgroundColour}, {QStringLiteral("heading"), book.settings.heading}};
    if (book.opened.isValid())
        values[QStringLiteral("opened")] = book.opened.toMSecsSinceEpoch();
    return QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact));
}

std::optional<KnownBook> readBook(const QString& text)
{
    const QJsonObject values = QJsonDocument::fromJson(text.toUtf8()).object();
    KnownBook book;
    book.settings.dataFolder = values[QStringLiteral("folder")].toString();
    if (book.settings.dataFolder.isEmpty())
        return std::nullopt;
    book.settings.backgroundColour = values[QStringLiteral("colour")].toInt(book.settings.backgroundColour);
    book.settings.heading = values[QStringLiteral("heading")].toString(book.settings.heading);
    if (const qint64 opened = values[QStringLiteral("opened")].toInteger(); opened > 0)
        book.opened = QDateTime::fromMSecsSinceEpoch(opened);
    return book;
}

auto findBook(std::vector<KnownBook>& books, const QString& folder)
{
    return std::find_if(books.begin(), books.end(),
        [&](const KnownBook& each) { return isSameBook(each.settings.dataFolder, folder); });
}

} // namespace

bool isSameBook(const QString& one, const QString& other)
{
    return one == other || BookFiles(one).dataFolder() == BookFiles(other).dataFolder();
}

KnownBooks::KnownBooks(SettingsStore store)
    : m_store(std::move(store))
{
}

std::vector<KnownBook> KnownBooks::list() const
{
    std::vector<KnownBook> books;
    for (qsizetype place = 0; place < most; ++place) {
        const auto text = m_store.value(section, keyOf(place));
        if (!text)
            break;
        if (auto book = readBook(*text))
            books.push_back(std::move(*book));
    }
    return books;
}

void KnownBooks::write(const std::vector<KnownBook>& books) const
{
    std::vector<Setting> settings;
    for (qsizetype place = 0; place < most; ++place) {
        const auto at = static_cast<std::size_t>(place);
        if (at < books.size())
            settings.push_back({section, keyOf(place), written(books[at])});
        else if (m_store.value(section, keyOf(place)))
            settings.push_back({section, keyOf(place), {}});
        else
            break;
    }
    m_store.write(settings);
}

void KnownBooks::remember(const KnownBook& book) const
{
    std::vector<KnownBook> books = list();
    if (const auto known = findBook(books, book.settings.dataFolder); known != books.end())
        books.erase(known);
    books.insert(books.begin(), book);
    write(books);
}

void KnownBooks::takeOver(const DataFolderSettings& settings) const
{
    std::vector<KnownBook> books = list();
    if (const auto known = findBook(books, settings.dataFolder); known != books.end())
        known->settings = settings;
    else
        books.push_back({settings});
    write(books);
}

void KnownBooks::forget(const QString& folder) const
{
    std::vector<KnownBook> books = list();
    if (const auto known = findBook(books, folder); known != books.end()) {
        books.erase(known);
        write(books);
    }
}

} // namespace lorvan
