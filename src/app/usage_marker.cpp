#include "app/usage_marker.h"

#include "platform/windows1253.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace lorvan {
namespace {

constexpr qsizetype nameLength = 25;
constexpr qsizetype recordLength = 1 + 2 * nameLength;
constexpr char inUse = '1';
constexpr char isFree = '0';
constexpr std::chrono::seconds lockTimeout{5};

struct Record {
    char state = ' ';
    QByteArray user;
    QByteArray computer;

    friend bool operator==(const Record&, const Record&) = default;
};

QByteArray field(const QString& name)
{
    return toWindows1253(name).leftJustified(nameLength, ' ', true);
}

Record recordOf(char state, const MachineIdentity& identity)
{
    return {state, field(identity.user), field(identity.computer)};
}

QString nameIn(const QByteArray& field)
{
    QString name = fromWindows1253(field);
    while (name.endsWith(u' ') || name.endsWith(QChar(u'\0')))
        name.chop(1);
    return name;
}

struct Descriptor {
    int value;
    ~Descriptor()
    {
        if (value >= 0)
            ::close(value);
    }
};

/// The marker file, open and locked against every other process for as long as the object lives.
class LockedFile {
public:
    explicit LockedFile(const QString& path)
        : m_path(path)
        , m_descriptor{::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)}
    {
        if (m_descriptor.value < 0)
            fail("open");
        lock();
    }
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;

    /// A short or empty file yields a record of no known state.
    [[nodiscard]] Record read() const
    {
        QByteArray bytes(recordLength, ' ');
        if (::pread(m_descriptor.value, bytes.data(), static_cast<std::size_t>(recordLength), 0) < 0)
            fail("read");
        return {bytes.front(), bytes.sliced(1, nameLength), bytes.sliced(1 + nameLength)};
    }

    void write(const Record& record)
    {
        const QByteArray bytes = record.state + record.user + record.computer;
        if (::pwrite(m_descriptor.value, bytes.constData(), static_cast<std::size_t>(recordLength), 0) != recordLength
            || ::fdatasync(m_descriptor.value) != 0)
            fail("write");
    }

private:
    [[noreturn]] void fail(const char* operation) const
    {
        throw MarkerError(std::string(operation) + " " + m_path.toStdString() + ": " + std::strerror(errno));
    }

    /// The lock belongs to the open file, not to the process, so two instances in one process exclude each other too.
    void lock()
    {
        struct flock whole { };
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        const auto deadline = std::chrono::steady_clock::now() + lockTimeout;
        while (::fcntl(m_descriptor.value, F_OFD_SETLK, &whole) != 0) {
            const bool waiting = errno == EAGAIN || errno == EACCES || errno == EINTR;
            if (!waiting || std::chrono::steady_clock::now() > deadline)
                fail("lock");
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
    }

    QString m_path;
    Descriptor m_descriptor;
};

} // namespace

UsageMarker::UsageMarker(QString path, MachineIdentity self)
    : m_path(std::move(path))
    , m_self(std::move(self))
{
}

bool UsageMarker::claim()
{
    (void)guardChange();
    return m_owns;
}

std::optional<MachineIdentity> UsageMarker::guardChange()
{
    LockedFile file(m_path);
    const Record record = file.read();
    const Record own = recordOf(inUse, m_self);
    if (record.state == isFree && !m_retired) {
        file.write(own);
        m_owns = true;
    } else if (record.state == inUse && record != own) {
        m_owns = false; // an unlock may have handed it on
    }
    if (record.state != inUse || m_owns)
        return std::nullopt;
    return MachineIdentity{nameIn(record.user), nameIn(record.computer)};
}

void UsageMarker::release()
{
    if (!m_owns)
        return;
    LockedFile file(m_path);
    const Record record = file.read();
    const bool handedOn = record.state == inUse && record != recordOf(inUse, m_self);
    if (!handedOn)
        file.write(recordOf(isFree, m_self));
    m_owns = false;
}

void UsageMarker::retire()
{
    m_retired = true;
    release();
}

std::optional<MachineIdentity> UsageMarker::heldByAnother()
{
    const Record record = LockedFile(m_path).read();
    if (record.state != inUse)
        return std::nullopt;
    if (m_owns && record != recordOf(inUse, m_self))
        m_owns = false;
    if (m_owns)
        return std::nullopt;
    return MachineIdentity{nameIn(record.user), nameIn(record.computer)};
}

void UsageMarker::create(const QString& path)
{
    LockedFile(path).write(recordOf(isFree, {}));
}

void UsageMarker::unlock(const QString& path)
{
    LockedFile file(path);
    Record record = file.read();
    record.state = isFree;
    file.write(record);
}

QString markerCaption(const std::optional<MachineIdentity>& holder)
{
    const QString name = QStringLiteral("Lorvan");
    return holder ? name + QStringLiteral("  -  ") + markerRefusal(*holder) : name;
}

QString markerRefusal(const MachineIdentity& holder)
{
    return QStringLiteral("Η βάση χρησιμοποιήτε από τον (την) ") + holder.user + QStringLiteral(" στον Η/Υ ")
        + holder.computer;
}

} // namespace lorvan
