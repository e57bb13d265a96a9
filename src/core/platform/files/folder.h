#pragma once

#include "platform/files/file.h"

#include <QStringList>

namespace lorvan {

/// An open folder. Its contents are reached from here by plain names, which must not be links, so that other users who
/// can write into the folder cannot lead us out of it. All operations throw FileError.
class Folder {
public:
    /// Opens an existing folder. Links in the path are followed.
    explicit Folder(const QString& path);
    ~Folder();
    Folder(Folder&& other) noexcept;
    Folder& operator=(Folder&& other) noexcept;

    [[nodiscard]] const QString& path() const { return m_path; } ///< Without links.
    [[nodiscard]] QString pathOf(const QString& name) const { return m_path + u'/' + name; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    enum class Opening {
        Read,
        Write, ///< An existing file, for reading and writing; its contents are kept.
        WriteOrMake, ///< The same, but makes an empty file if there is none.
        MakeNew ///< Fails with EEXIST if the name is taken.
    };
    /// Opens a plain file; links, folders, pipes and devices are refused. `access` applies if the file has to be made.
    [[nodiscard]] File open(const QString& name, Opening how, FileAccess access = FileAccess::LikeFolder) const;

    /// Opens a folder in this one.
    [[nodiscard]] Folder openFolder(const QString& name) const;
    /// The same, but makes it, for its owner only, if there is none; the name is confirmed by sync().
    [[nodiscard]] Folder openOrMakeFolder(const QString& name) const;
    /// Makes a new folder for its owner only, with a name that starts with `prefix` and cannot be guessed.
    [[nodiscard]] Folder makeWorkFolder(const QString& prefix) const;

    enum class Kind { Nothing, File, Folder, Other };
    [[nodiscard]] Kind kindOf(const QString& name) const; ///< A link is Other.
    [[nodiscard]] bool exists(const QString& name) const { return kindOf(name) != Kind::Nothing; }
    [[nodiscard]] bool isFile(const QString& name) const { return kindOf(name) == Kind::File; }
    [[nodiscard]] QStringList names() const; ///< Hidden ones too, sorted.

    enum class Taken { Refuse, Replace };
    /// With Taken::Refuse, fails with EEXIST if the new name is taken.
    void rename(const QString& name, const Folder& to, const QString& newName, Taken taken = Taken::Refuse) const;
    /// Removes a file, or the link itself. It is no error if there is none.
    void remove(const QString& name) const;
    /// Removes a folder with everything in it, or whatever else has the name. Links are removed, never followed. If
    /// another file system is mounted inside, it is left alone and the removal fails.
    void removeTree(const QString& name) const;
    /// Removes an empty folder; returns false if it is not empty or does not exist.
    bool removeEmpty(const QString& name) const;

    /// Writes a temporary file beside the target, waits until the disk has confirmed it, and renames it. The new file
    /// takes over the mode and group of the one it replaces; if there was none, it gets `access`. On failure the old
    /// file is unchanged. It is not an error if the disk does not confirm the name: see noteUnconfirmed(). Temporary
    /// files left by interrupted replacements are removed first.
    void replace(const QString& name, const QByteArray& content, FileAccess access = FileAccess::LikeFolder) const;

    /// Gives that access to a file of this folder, or to one that will be moved here.
    void give(const File& file, FileAccess access) const;

    /// Makes the disk confirm the names in the folder. If the file system does not support this, it counts as done.
    void sync() const;
    /// The same after something that cannot be taken back: tries twice, then calls noteUnconfirmed().
    void confirm() const noexcept;
    /// Calls sync() and returns whether the file system supports it.
    [[nodiscard]] bool knowsSync() const;

private:
    Folder(int descriptor, QString path);
    [[nodiscard]] int openInside(const QString& name, int flags, mode_t mode = 0) const;
    [[noreturn]] void fail(const QString& name) const;
    void removeContents(int depth) const;
    void removeParts(const QString& prefix) const noexcept;
    void removeTree(const QString& name, int depth) const;

    int m_descriptor = -1;
    QString m_path;
};

} // namespace lorvan
