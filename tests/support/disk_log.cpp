#include "support/disk_log.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <random>
#include <set>
#include <stdexcept>
#include <sys/stat.h>

namespace lorvan::test {
namespace {

constexpr qsizetype sector = 512;

Inode inodeOf(const QString& path)
{
    struct stat found { };
    if (::lstat(QFile::encodeName(path).constData(), &found) != 0)
        throw std::runtime_error("cannot stat " + path.toStdString());
    return {found.st_dev, found.st_ino};
}

void put(QByteArray& content, qsizetype offset, QByteArrayView bytes)
{
    if (content.size() < offset + bytes.size())
        content.append(offset + bytes.size() - content.size(), '\0');
    std::copy(bytes.begin(), bytes.end(), content.begin() + offset);
}

} // namespace

/// What is held at a cut.
struct DiskLog::Disk {
    struct Sizes {
        qsizetype now = 0; ///< As the program sees it.
        std::vector<qsizetype> candidates; ///< The certain one, and what it grew or shrank to since.
    };

    std::map<int, QByteArray> contents;
    std::map<int, std::map<QByteArray, int>> names;
    std::map<int, Sizes> sizes;
    std::mt19937 random;
    double kept;

    bool keeps() { return std::uniform_real_distribution<>(0, 1)(random) < kept; }

    void resized(int node, qsizetype size, bool isCertain)
    {
        auto& sizesOfNode =
            sizes.try_emplace(node, Sizes{contents[node].size(), {contents[node].size()}}).first->second;
        sizesOfNode.now = size;
        if (isCertain)
            sizesOfNode.candidates.clear();
        sizesOfNode.candidates.push_back(size);
    }

    void apply(const Event& event, bool isCertain)
    {
        switch (event.kind) {
        case Kind::Write:
            write(event, isCertain);
            break;
        case Kind::Truncate:
            resized(event.node, event.offset, isCertain);
            if (isCertain || keeps())
                contents[event.node].resize(event.offset, '\0');
            break;
        case Kind::Sync:
            break;
        case Kind::Make:
        case Kind::Remove:
        case Kind::Rename:
            if (isCertain || keeps())
                name(event);
        }
    }

    void write(const Event& event, bool isCertain)
    {
        QByteArray& content = contents[event.node];
        const qsizetype end = event.offset + event.bytes.size();
        const auto known = sizes.find(event.node);
        resized(event.node, std::max(known == sizes.end() ? content.size() : known->second.now, end), isCertain);
        for (qsizetype at = event.offset; at < end;) {
            const qsizetype next = isCertain ? end : std::min(end, (at / sector + 1) * sector);
            if (isCertain || keeps())
                put(content, at, QByteArrayView(event.bytes).sliced(at - event.offset, next - at));
            at = next;
        }
    }

    void name(const Event& event)
    {
        if (event.kind == Kind::Make) {
            names[event.node][event.bytes] = event.other;
            if (event.made == Made::Folder)
                names[event.other];
            return;
        }
        names[event.node].erase(event.bytes);
        if (event.kind == Kind::Rename)
            names[event.other][event.newName] = event.renamed;
    }

    void chooseSizes()
    {
        for (const auto& [node, known] : sizes) {
            std::uniform_int_distribution<std::size_t> any(0, known.candidates.size() - 1);
            const std::size_t chosen = kept <= 0 ? 0 : kept >= 1 ? known.candidates.size() - 1 : any(random);
            contents[node].resize(known.candidates[chosen], '\0');
        }
    }

    void writeTo(const QString& folder, int node) const
    {
        const auto entries = names.find(node);
        if (entries == names.end())
            return;
        for (const auto& [name, inner] : entries->second) {
            const QString path = folder + u'/' + QFile::decodeName(name);
            if (names.contains(inner)) {
                QDir().mkdir(path);
                writeTo(path, inner);
                continue;
            }
            QFile file(path);
            const auto content = contents.find(inner);
            if (!file.open(QIODevice::WriteOnly) || (content != contents.end() && file.write(content->second) < 0))
                throw std::runtime_error("cannot write " + path.toStdString());
        }
    }
};

DiskLog::DiskLog(const QString& folder)
{
    scan(folder, nodeOf(inodeOf(folder)));
}

void DiskLog::scan(const QString& folder, int node)
{
    m_names[node];
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(everything)) {
        const int inner = nodeOf(inodeOf(entry.filePath()));
        m_names[node][QFile::encodeName(entry.fileName())] = inner;
        if (entry.isDir()) {
            scan(entry.filePath(), inner);
        } else if (QFile file(entry.filePath()); file.open(QIODevice::ReadOnly)) {
            m_contents[inner] = file.readAll();
        }
    }
}

/// One that was never seen lies outside the folder.
int DiskLog::nodeOf(Inode inode)
{
    const auto [known, isNew] = m_nodes.try_emplace(inode, m_last + 1);
    m_last += isNew;
    return known->second;
}

void DiskLog::written(Inode file, off_t offset, QByteArray bytes)
{
    m_events.push_back({Kind::Write, nodeOf(file), std::move(bytes), offset});
}

void DiskLog::truncated(Inode file, off_t size)
{
    m_events.push_back({Kind::Truncate, nodeOf(file), {}, size});
}

void DiskLog::synced(Inode fileOrFolder)
{
    m_events.push_back({Kind::Sync, nodeOf(fileOrFolder)});
}

void DiskLog::made(Inode folder, QByteArray name, Inode node, Made what)
{
    m_nodes.erase(node);
    const int inner = nodeOf(node);
    m_events.push_back({Kind::Make, nodeOf(folder), std::move(name), 0, inner, {}, what});
}

void DiskLog::removed(Inode folder, QByteArray name)
{
    m_events.push_back({Kind::Remove, nodeOf(folder), std::move(name)});
}

void DiskLog::renamed(Inode node, Inode from, QByteArray name, Inode to, QByteArray newName)
{
    m_events.push_back(
        {Kind::Rename, nodeOf(from), std::move(name), 0, nodeOf(to), std::move(newName), Made::File, nodeOf(node)});
}

std::vector<bool> DiskLog::certainAt(std::size_t at) const
{
    std::vector<bool> isCertain(at);
    std::set<int> synced;
    for (std::size_t i = at; i-- > 0;) {
        const Event& event = m_events[i];
        if (event.kind == Kind::Sync)
            synced.insert(event.node);
        isCertain[i] = synced.contains(event.kind == Kind::Rename ? event.other : event.node);
    }
    return isCertain;
}

void DiskLog::materialise(const Cut& cut, const QString& folder) const
{
    const std::vector<bool> isCertain = certainAt(cut.at);
    Disk disk{m_contents, m_names, {}, std::mt19937(cut.seed), cut.kept};
    for (std::size_t i = 0; i < cut.at; ++i)
        disk.apply(m_events[i], isCertain[i]);
    disk.chooseSizes();
    disk.writeTo(folder, 0);
}

} // namespace lorvan::test
