#include "books/book_choice.h"

#include "book/book_files.h"
#include "book/program_folder.h"
#include "book/startup.h"
#include "books/book_look.h"
#include "platform/windows1253.h"
#include "platform/work.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

[[noreturn]] void refuseRunning()
{
    throw Refused(QStringLiteral("Το πρόγραμμα είναι ήδη ανοιχτό. Κλείστε το πρώτα."));
}

} // namespace

void refuseUnrecordable(const QString& folder)
{
    if (!fitsWindows1253(folder))
        throw Refused(QStringLiteral("Η διαδρομή %1 έχει χαρακτήρες έξω από τα ελληνικά και τα λατινικά"
                                     " (Windows-1253) και δεν χωρά στο αρχείο διαδρομής.")
                          .arg(folder));
    if (folder != folder.trimmed() || folder.contains(u'\n') || folder.contains(u'\r'))
        throw Refused(QStringLiteral("Η διαδρομή %1 τελειώνει σε κενό ή έχει αλλαγή γραμμής και δεν χωρά στο"
                                     " αρχείο διαδρομής.")
                          .arg(folder));
}

BookChoice::BookChoice(const QString& programFile, KnownBooks known)
    : m_programFile(programFile)
    , m_programFolder(programFolder(QFileInfo(programFile).absolutePath()))
    , m_program(programFile)
    , m_known(std::move(known))
{
}

std::optional<DataFolderSettings> BookChoice::present() const
{
    const DataFolderSettings settings = PathFile(m_programFolder).read();
    const bool isOwnFolder = isSameBook(settings.dataFolder, m_programFolder);
    if (!namesFolder(settings) || (isOwnFolder && !BookFiles::exists(BookFiles(settings.dataFolder).mainDatabase())))
        return std::nullopt;
    return settings;
}

std::vector<KnownBook> BookChoice::books() const
{
    std::vector<KnownBook> books = m_known.list();
    const auto opened = present();
    if (!opened)
        return books;
    const auto known = std::find_if(books.begin(), books.end(),
        [&](const KnownBook& each) { return isSameBook(each.settings.dataFolder, opened->dataFolder); });
    if (known == books.end())
        books.push_back({*opened});
    else
        known->settings = *opened;
    return books;
}

std::optional<KnownBook> BookChoice::onlyBook() const
{
    const std::vector<KnownBook> known = books();
    if (known.size() != 1)
        return std::nullopt;
    const BookLook look = lookAtBook(known.front().settings.dataFolder);
    const bool opens = look.condition == BookCondition::Ready || look.condition == BookCondition::Unreadable;
    if (!opens || !look.hasUsers)
        return std::nullopt;
    return known.front();
}

DataFolderSettings BookChoice::settingsOf(const QString& folder) const
{
    for (const KnownBook& known : books())
        if (isSameBook(known.settings.dataFolder, folder))
            return known.settings;
    DataFolderSettings settings = PathFile(m_programFolder).read();
    if (BookFiles::exists(BookFiles(settings.dataFolder).mainDatabase())) // they are those of another book
        settings = {};
    settings.dataFolder = BookFiles(folder).dataFolder();
    return settings;
}

void BookChoice::add(const DataFolderSettings& settings) const
{
    if (const auto opened = present())
        m_known.takeOver(*opened);
    m_known.remember({settings});
}

void BookChoice::forget(const QString& folder) const
{
    InstanceGuard guard(m_programFile);
    const auto opened = present();
    if (opened && isSameBook(opened->dataFolder, folder) && !guard.isOnlyInstance())
        refuseRunning();
    if (opened && isSameBook(opened->dataFolder, folder) && !PathFile(m_programFolder).replaceFolder(m_programFolder))
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται.").arg(PathFile(m_programFolder).path()));
    m_known.forget(folder);
}

std::unique_ptr<InstanceGuard> BookChoice::choose(const DataFolderSettings& book, const QDateTime& now) const
{
    DataFolderSettings chosen = book;
    chosen.dataFolder = BookFiles(book.dataFolder).dataFolder();
    refuseUnrecordable(chosen.dataFolder);
    auto guard = std::make_unique<InstanceGuard>(m_programFile);
    if (!guard->isOnlyInstance())
        refuseRunning();
    if (const auto opened = present())
        m_known.takeOver(*opened);
    const PathFile file(m_programFolder);
    if (!file.replace(chosen))
        throw Refused(QStringLiteral("Το αρχείο %1 δεν γράφεται.").arg(file.path()));
    m_known.remember({chosen, now});
    return guard;
}

} // namespace lorvan
