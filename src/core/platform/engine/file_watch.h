#pragma once

#include <QByteArray>
#include <QString>

#include <ctime>
#include <vector>

struct sqlite3;

namespace lorvan {

/// Tells whether another program has changed the databases that a connection reads, where no lock prevents it.
///
/// Looks at the files themselves, never at pages in the engine's cache: at the first page, which changes with every
/// commit (the change counter and, in an encrypted file, a new random beginning); at the time of the last write, which
/// also changes when a transaction is rolled back; and at whether there is a journal.
class FileWatch {
public:
    /// `handle` is a connection whose main database is open; it must outlive the watch.
    explicit FileWatch(sqlite3* handle);

    /// From now on an attached database is watched too.
    void add(const QByteArray& schema);

    /// Notes the state of the files and makes the engine drop its cached pages. No statement may be running. Returns
    /// false, noting nothing, if there is a journal. Throws SqlError if a file cannot be read.
    [[nodiscard]] bool note();

    /// True if the files are as they were when they were noted. A file that cannot be read counts as changed.
    [[nodiscard]] bool isAsNoted() const { return isAs(m_noted); }

    struct FileState {
        QByteArray firstPage;
        std::timespec written{};
        bool hasJournal = false;

        bool operator==(const FileState& other) const;
    };
    using State = std::vector<FileState>;

    [[nodiscard]] const State& noted() const { return m_noted; }
    [[nodiscard]] bool isAs(const State& state) const;

private:
    [[nodiscard]] FileState stateOf(const QByteArray& schema) const;
    [[nodiscard]] State state() const;

    sqlite3* m_handle;
    std::vector<QByteArray> m_schemas{QByteArrayLiteral("main")};
    State m_noted;
};

} // namespace lorvan
