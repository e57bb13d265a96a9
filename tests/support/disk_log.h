#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <utility>
#include <vector>

#include <sys/types.h>

namespace lorvan::test {

using Inode = std::pair<dev_t, ino_t>;

/// Everything that is done to the files below one folder, in order, and what of it a disk still holds when the power
/// goes. A file's writes are held for certain once the file was synced, a name's change once its folder was.
class DiskLog {
public:
    /// What stands in the folder now is held for certain.
    explicit DiskLog(const QString& folder);

    void written(Inode file, off_t offset, QByteArray bytes);
    void truncated(Inode file, off_t size);
    void synced(Inode fileOrFolder);
    enum class Made : char { File, Folder };
    void made(Inode folder, QByteArray name, Inode node, Made what = Made::File);
    void removed(Inode folder, QByteArray name);
    /// Durable with the sync of the folder that it moves to, and never half done.
    void renamed(Inode node, Inode from, QByteArray name, Inode to, QByteArray newName);

    /// How many things were done.
    [[nodiscard]] std::size_t length() const { return m_events.size(); }

    struct Cut {
        std::size_t at = 0; ///< So many things were done.
        unsigned seed = 0;
        double kept = 0; ///< Which share of what was not synced is there all the same: each sector, size and name.
    };
    /// Writes what the disk holds then into an empty folder.
    void materialise(const Cut& cut, const QString& folder) const;

private:
    enum class Kind : char { Write, Truncate, Sync, Make, Remove, Rename };
    struct Event {
        Kind kind;
        int node; ///< The file; of a name, its folder.
        QByteArray bytes = {}; ///< Or the name.
        off_t offset = 0; ///< Or the size.
        int other = 0; ///< The file that gets the name, the folder that it moves to.
        QByteArray newName = {};
        Made made = Made::File;
        int renamed = 0;
    };
    struct Disk;

    int nodeOf(Inode inode);
    void scan(const QString& folder, int node);
    [[nodiscard]] std::vector<bool> certainAt(std::size_t at) const;

    std::map<Inode, int> m_nodes; ///< The root is 0; a number that the system gives again is another node.
    std::map<int, QByteArray> m_contents; ///< At the beginning.
    std::map<int, std::map<QByteArray, int>> m_names;
    std::vector<Event> m_events;
    int m_last = -1;
};

} // namespace lorvan::test
