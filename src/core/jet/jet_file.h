#pragma once

#include "jet/jet_bytes.h"
#include "jet/jet_damage.h"

#include <QByteArray>
#include <QString>

namespace lorvan {

/// The pages of one Jet 4.0 file, held in memory: 4,096 bytes each, the first byte telling the kind of page.
class JetFile {
public:
    static constexpr std::uint32_t pageSize = 4096;

    enum class PageKind : std::uint8_t { Header = 0, Data = 1, Definition = 2, UsageMap = 5 };

    /// Reads a whole file of up to 2 GiB; nothing is written, and no lock file is made. Throws JetError if the file
    /// does not exist, is not a plain file or cannot be read, and like the constructor.
    static JetFile load(const QString& path, JetDamage& damage);

    /// Checks the header. Throws NotAJetFile, and JetError for other versions of the format, encrypted pages and a file
    /// with less than one page. An incomplete last page is damage, and is left out.
    JetFile(QString name, QByteArray content, JetDamage& damage);

    [[nodiscard]] const QString& name() const { return m_name; }
    [[nodiscard]] std::uint32_t pageCount() const { return m_pageCount; }

    /// Throws JetError for a page past the end.
    [[nodiscard]] JetBytes page(std::uint32_t number) const;
    [[nodiscard]] bool isOfKind(std::uint32_t number, PageKind kind) const;
    /// The page; it is an error if it is of another kind.
    [[nodiscard]] JetBytes pageOfKind(std::uint32_t number, PageKind kind) const;

private:
    void checkHeader() const;

    QString m_name;
    QByteArray m_content;
    std::uint32_t m_pageCount = 0;
};

} // namespace lorvan
