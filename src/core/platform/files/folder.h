#pragma once

#include "platform/files/file.h"

#include <QStringList>

namespace lorvan {

/// An open folder. What lies in it is reached from here by plain names, which may not be links: whoever else may write
/// into the folder cannot lead us out of it. All operations throw FileError.
class Folder {
public:
    /// An existing folder. Links on the way to it are followed.
    explicit Folder(const QString& path);
    ~Folder();
    Folder(Folder&& other) noexcept;
    Folder& operator=(Folder&& other) noexcept;

    [[nodiscard]] const QString& path() const { return m_path; } ///< Without links.
    [[nodiscard]] QString pathOf(const QString& name) const { return m_path + u'/' + name; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    enum class Opening {
        Read,
        Write, ///< An existing file, for reading too, as it is.
        WriteOrMake, ///< The same, and an empty one where there is none.
        MakeNew ///< Refuses a name that is taken, with EEXIST.
    };
    /// Opens a plain file; links, folders, pipes and devices are refused. `access` is for one that is made.
    [[nodiscard]] File open(const QString& name, Opening how, FileAccess access = FileAccess::LikeFolder) const;

    /// A folder in this one.
    [[nodiscard]] Folder openFolder(const QString& name) const;
    /// The same, made for its owner alone where there is none; the name is confirmed by sync().
    [[nodiscard]] Folder openOrMakeFolder(const QString& name) const;
    /// A new folder for its owner alone, whose name begins so and cannot be guessed.
    [[nodiscard]] Folder makeWorkFolder(const QString& prefix) const;

    enum class Kind { Nothing, File, Folder, Other };
    [[nodiscard]] Kind kindOf(const QString& name) const; ///< A link is Other.
    [[nodiscard]] bool exists(const QString& name) const { return kindOf(name) != Kind::Nothing; }
    [[nodiscard]] bool isFile(const QString& name) const { return kindOf(name) == Kind::File; }
    [[nodiscard]] QStringList names() const; ///< Hidden ones too, sorted.

    enum class Taken { Refuse, Replace };
    /// Refuses a taken name with EEXIST, where it is to be refused.
    void rename(const QString& name, const Folder& to, const QString& newName, Taken taken = Taken::Refuse) const;
    /// A file, or the link itself. One that is not there is no failure.
    void remove(const QString& name) const;
    /// A folder with all that is in it, or whatever else has the name. Links are removed, never followed, and another
    /// file system that is mounted inside is left alone and refused.
    void removeTree(const QString& name) const;
    /// An empty folder; false where it is not empty or not there.
    bool removeEmpty(const QString& name) const;

    /// Writes a file beside its place, has the disk confirm it, and gives it the name. One that it replaces hands on
    /// its mode and group; a new one gets `access`. A failure leaves the old one. That the disk did not confirm the
    /// name is no failure: see noteUnconfirmed(). What a replacement that was cut short left beside the place goes
    /// first.
    void replace(const QString& name, const QByteArray& content, FileAccess access = FileAccess::LikeFolder) const;

    /// Gives a file of this folder, or one that will be moved here, that access.
    void give(const File& file, FileAccess access) const;

    /// Has the disk confirm which names are in the folder. A file system that knows no such thing counts as done.
    void sync() const;
    /// The same after something that cannot be taken back: tried twice, then noted with noteUnconfirmed().
    void confirm() const noexcept;
    /// sync() that tells whether the file system knows such a thing.
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
