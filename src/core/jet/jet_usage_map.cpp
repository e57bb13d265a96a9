#include "jet/jet_usage_map.h"

#include "jet/jet_data_page.h"

namespace lorvan {
namespace {

constexpr std::uint8_t bitmapInPlace = 0;
constexpr std::uint8_t bitmapOnPages = 1;
constexpr std::uint64_t pageNumberSize = 4;
constexpr std::uint64_t bitmapOffsetOnPage = 4;
constexpr std::uint64_t pagesPerMapPage = (JetFile::pageSize - bitmapOffsetOnPage) * 8;

void addPages(const JetBytes& bitmap, std::uint64_t firstPage, std::uint32_t pageCount, std::vector<std::uint32_t>& to)
{
    const std::uint64_t bits = bitmap.size() * 8;
    for (std::uint64_t bit = 0; bit < bits && firstPage + bit < pageCount; ++bit) {
        if ((bitmap.u8(bit / 8) >> (bit % 8)) & 1)
            to.push_back(static_cast<std::uint32_t>(firstPage + bit));
    }
}

} // namespace

std::vector<std::uint32_t> mappedPages(const JetFile& file, JetRowPointer pointer)
{
    const JetBytes map = bytesAt(file, pointer);
    const std::uint8_t form = map.u8(0);
    std::vector<std::uint32_t> pages;
    if (form == bitmapInPlace) {
        addPages(map.from(1 + pageNumberSize), map.u32(1), file.pageCount(), pages);
    } else if (form == bitmapOnPages) {
        for (std::uint64_t i = 0; 1 + (i + 1) * pageNumberSize <= map.size(); ++i) {
            const std::uint32_t page = map.u32(1 + i * pageNumberSize);
            if (page == 0)
                continue;
            const JetBytes bitmap = file.pageOfKind(page, JetFile::PageKind::UsageMap).from(bitmapOffsetOnPage);
            addPages(bitmap, i * pagesPerMapPage, file.pageCount(), pages);
        }
    } else {
        throw JetError(QStringLiteral("ο χάρτης των σελίδων είναι είδους %1").arg(form));
    }
    return pages;
}

} // namespace lorvan
