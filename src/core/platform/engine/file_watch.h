#pragma once

#include <QByteArray>
#include <QString>

#include <ctime>
#include <vector>

struct sqlite3;

namespace lorvan {

/// Tells whether another program has changed the databases that a connection reads, where no lock keeps it from that.
///
/// The files themselves are looked at, never pages that the engine has kept: the first page, which every commit writes
/// anew with the change counter and, in an encrypted file, with a beginning of its own; the time of the last writing,
/// which a change that was taken back leaves behind too; and whether a journal stands.
class FileWatch {
public:
    /// `handle` is a connection with its main database open, and outlives the watch.
    explicit FileWatch(sqlite3* handle);

    /// From now on an attached database too.
    void add(const QByteArray& schema);

    /// Looks at the files and has the engine forget their pages. No statement may be running. False, and nothing is
    /// noted, where a journal stands. Throws SqlError where a file cannot be read.
    [[nodiscard]] bool note();

    /// True where the files are as they were when they were noted. One that cannot be read has changed.
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
