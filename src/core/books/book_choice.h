#pragma once

#include "books/known_books.h"
#include "platform/files/instance_guard.h"

#include <memory>
#include <optional>

namespace lorvan {

/// Throws Refused if the path file cannot hold this folder: characters that Windows-1253 lacks, a blank at its end, a
/// line break. The folder need not exist.
void refuseUnrecordable(const QString& folder);

/// Which book the program opens at its next start: the path file's, and the list of known books, which gets what stands
/// in the path file before another book is written there.
class BookChoice {
public:
    /// `programFile` is the executable `lorvan`; see program_folder.h for the folder with its path file.
    explicit BookChoice(const QString& programFile, KnownBooks known = KnownBooks());

    /// Whether the program runs, so that nothing may be chosen.
    [[nodiscard]] bool isProgramRunning() const { return m_program.runsElsewhere(); }
    /// Asks the running program to show its window. See InstanceGuard::callOther().
    void callProgram(const QByteArray& activationToken) const { m_program.callOther(activationToken); }

    /// What the path file says; no value if it names no folder, or only the program's own without a book in it.
    [[nodiscard]] std::optional<DataFolderSettings> present() const;

    /// The known books and, last if it is new, the path file's; nothing is written. Throws SettingsError.
    [[nodiscard]] std::vector<KnownBook> books() const;

    /// The book to open without asking: the only one, unless it is seen that the program could not open it, or that
    /// nobody could sign in. Looks into it: see lookAtBook(). Throws SettingsError.
    [[nodiscard]] std::optional<KnownBook> onlyBook() const;

    /// What to open the book in that folder with: as it is known, or a new one. That has the colour and heading of
    /// the path file if these are of no other book. Throws SettingsError.
    [[nodiscard]] DataFolderSettings settingsOf(const QString& folder) const;

    /// Adds a book to the list, for books() to show. Throws SettingsError.
    void add(const DataFolderSettings& settings) const;
    /// Takes a book off the list, and out of the path file's place in it. Its files stay. Throws SettingsError and, for
    /// the path file's book, Refused if that cannot be written or the program runs.
    void forget(const QString& folder) const;

    /// Writes all three fields of the book into the path file, after taking over the present ones into the list, and
    /// puts the book first in it. Returns a guard that keeps the program from starting meanwhile: until it is
    /// destroyed, or until this process becomes the program. Throws Refused, also if the program runs, and
    /// SettingsError; the path file is then unchanged.
    [[nodiscard]] std::unique_ptr<InstanceGuard> choose(const DataFolderSettings& book, const QDateTime& now) const;

private:
    QString m_programFile;
    QString m_programFolder;
    InstanceGuard m_program; ///< Never made the only instance.
    KnownBooks m_known;
};

} // namespace lorvan
