#include "jet/jet_catalogue.h"
#include "jet/jet_data_page.h"
#include "jet/jet_usage_map.h"
#include "legacy/legacy_book.h"
#include "tools/legacy/older_books.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

namespace lorvan::test {
namespace {

QByteArray mainFile(const char* book)
{
    return fileContent(olderBook(QString::fromLatin1(book)) + QStringLiteral("/lorvan.mdb"));
}

/// Reads all tables of a main database. What leaves it besides JetError is a fault of the reader.
std::uint64_t readAll(const QByteArray& content, JetDamage& damage)
{
    LegacyBook book;
    readLegacyTables(JetFile(QStringLiteral("lorvan.mdb"), content, damage), LegacyTable::File::Main, book, damage);
    return book.rowCount();
}

/// What a strict reading says; the empty text for a book that it takes.
std::string complaint(const QByteArray& content)
{
    try {
        JetDamage damage(JetDamage::Answer::Refuse);
        (void)readAll(content, damage);
        return {};
    } catch (const JetError& error) {
        return error.what();
    }
}

/// Finds places in a sound file, to be changed afterwards; all are positions in the whole file.
class SoundFile {
public:
    explicit SoundFile(const QByteArray& content)
        : m_file(QStringLiteral("x"), content, m_damage)
        , m_catalogue(m_file, m_damage)
    {
    }

    [[nodiscard]] qsizetype definition(const char* table) const { return at(page(table)); }
    /// The first data page of a table.
    [[nodiscard]] qsizetype dataPage(const char* table) const { return at(dataPageNumber(table)); }
    [[nodiscard]] qsizetype slot(const char* table, int row) const { return dataPage(table) + 14 + 2 * row; }
    [[nodiscard]] qsizetype usageMap(const char* table) const
    {
        return placeOf(bytesAt(m_file, m_catalogue.definitionOf(QString::fromLatin1(table)).usageMap));
    }
    /// The bytes of the table's n-th plain row on that page.
    [[nodiscard]] qsizetype row(const char* table, int which) const
    {
        return placeOf(JetDataPage(m_file, dataPageNumber(table)).slot(slotOfRow(table, which)).bytes);
    }
    [[nodiscard]] int slotOfRow(const char* table, int which) const
    {
        const JetDataPage data(m_file, dataPageNumber(table));
        for (int i = 0; i < data.slotCount(); ++i) {
            const auto slot = data.slot(i);
            if (!slot.isDeleted && !slot.isMoved && which-- == 0)
                return i;
        }
        return -1;
    }
    [[nodiscard]] JetRowPointer pointerTo(const char* table, int which) const
    {
        return {dataPageNumber(table), slotOfRow(table, which)};
    }

private:
    [[nodiscard]] std::uint32_t page(const char* table) const
    {
        const QString name = QString::fromLatin1(table);
        return name.isEmpty() ? 2 : m_catalogue.definitionOf(name).page;
    }
    [[nodiscard]] std::uint32_t dataPageNumber(const char* table) const
    {
        for (std::uint32_t i = 0; i < m_file.pageCount(); ++i) {
            if (m_file.isOfKind(i, JetFile::PageKind::Data) && JetDataPage(m_file, i).owner() == page(table))
                return i;
        }
        return 0;
    }
    static qsizetype at(std::uint32_t page) { return qsizetype(page) * JetFile::pageSize; }
    [[nodiscard]] qsizetype placeOf(const JetBytes& bytes) const
    {
        return bytes.view().data() - m_file.page(0).view().data();
    }

    JetDamage m_damage{JetDamage::Answer::Refuse};
    JetFile m_file;
    JetCatalogue m_catalogue;
};

void put(QByteArray& content, qsizetype at, const char* digits)
{
    const QByteArray bytes = QByteArray::fromHex(digits);
    content.replace(at, bytes.size(), bytes);
}

void putPointer(QByteArray& content, qsizetype at, JetRowPointer pointer)
{
    content[at] = static_cast<char>(pointer.row);
    for (int i = 0; i < 3; ++i)
        content[at + 1 + i] = static_cast<char>(pointer.page >> (8 * i));
}

/// Turns a plain row into one that was moved to `target`.
void move(QByteArray& content, const SoundFile& sound, const char* table, int which, JetRowPointer target)
{
    const qsizetype slot = sound.slot(table, sound.slotOfRow(table, which));
    content[slot + 1] = static_cast<char>(content[slot + 1] | 0x40);
    putPointer(content, sound.row(table, which), target);
}

/// 1,000 copies of a book with movements; LORVAN_DAMAGE_ROUNDS=100000 makes a soak run of it.
int damageRounds()
{
    const int wanted = qEnvironmentVariableIntValue("LORVAN_DAMAGE_ROUNDS");
    return wanted > 0 ? wanted : 1'000;
}

} // namespace

TEST(JetDamage, isRefusedWithItsPlace)
{
    const QByteArray original = mainFile("v1");
    const SoundFile sound(original);
    ASSERT_EQ(complaint(original), "");
    const struct {
        const char* what;
        std::function<void(QByteArray&)> harm;
        std::vector<const char*> said;
    } cases[] = {
        {"a circle of definition pages",
            [&](QByteArray& c) {
                const auto page = static_cast<std::uint32_t>(sound.definition("kinhseis") / JetFile::pageSize);
                putPointer(c, sound.definition("kinhseis") + 3, {page, c[sound.definition("kinhseis") + 3]});
            },
            {"kinhseis", "κύκλο"}},
        {"a definition that is none", [&](QByteArray& c) { put(c, sound.definition("tameio"), "01"); },
            {"tameio", "είδους 1"}},
        {"a definition longer than its pages",
            [&](QByteArray& c) { put(c, sound.definition("tameio") + 8, "ffffff7f"); }, {"tameio", "2147483647"}},
        {"more index blocks than there is room for",
            [&](QByteArray& c) { put(c, sound.definition("tameio") + 51, "ffffffff"); }, {"tameio", "byte"}},
        {"300 columns ever", [&](QByteArray& c) { put(c, sound.definition("omades") + 41, "2c01"); },
            {"omades", "300"}},
        {"a row more than there are", [&](QByteArray& c) { put(c, sound.definition("kinhseis") + 16, "2d010000"); },
            {"kinhseis", "300", "301"}},
        {"a column that is called otherwise",
            [&](QByteArray& c) {
                const QByteArray name("k\0v\0d\0i\0k\0o\0s\0", 14);
                c[c.indexOf(name, sound.definition("kinhseis"))] = 'x';
            },
            {"kinhseis", "kvdikos", "λείπει"}},
        {"a usage map of no known form", [&](QByteArray& c) { put(c, sound.usageMap("tameio"), "07"); },
            {"tameio", "είδους 7"}},
        {"a usage map without its page", [&](QByteArray& c) { put(c, sound.usageMap("tameio"), "00ff000000"); },
            {"tameio", "βρέθηκαν 0"}},
        {"more slots than a page has room for", [&](QByteArray& c) { put(c, sound.dataPage("kvdikoi") + 12, "f90f"); },
            {"kvdikoi", "σελίδα", "4089"}},
        {"a row that begins in the slots", [&](QByteArray& c) { put(c, sound.slot("kvdikoi", 0), "0400"); },
            {"kvdikoi", "γραμμή 0", "4 ως 4096"}},
        {"a row with more columns than ever were", [&](QByteArray& c) { put(c, sound.row("kvdikoi", 0), "ff00"); },
            {"kvdikoi", "255"}},
        {"a date that is no number", [&](QByteArray& c) { put(c, sound.row("tameio", 0) + 2 + 4, "000000000000f87f"); },
            {"tameio", "hmeromhnia", "nan"}},
        {"a number that is taken",
            [&](QByteArray& c) { c.replace(sound.row("tameio", 1) + 2, 4, c.mid(sound.row("tameio", 0) + 2, 4)); },
            {"tameio", "aa", "υπάρχει και άλλη γραμμή"}},
        {"two rows at one place", [&](QByteArray& c) { move(c, sound, "tameio", 0, sound.pointerTo("tameio", 1)); },
            {"tameio", "διαβάζεται και από αλλού"}},
        {"a row moved onto itself", [&](QByteArray& c) { move(c, sound, "tameio", 0, sound.pointerTo("tameio", 0)); },
            {"tameio", "διαβάζεται και από αλλού"}},
        {"a row moved into another table",
            [&](QByteArray& c) { move(c, sound, "tameio", 0, sound.pointerTo("kvdikoi", 0)); },
            {"tameio", "άλλου πίνακα"}},
        {"a row moved past the end",
            [&](QByteArray& c) {
                move(c, sound, "tameio", 0, {0xFFFFFF, 0});
            },
            {"tameio", "16777215"}},
        {"a page cut off", [](QByteArray& c) { c.chop(100); }, {"κομμένο", "3996"}},
        {"nothing", [](QByteArray& c) { c.clear(); }, {"κενό"}},
        {"less than a page", [](QByteArray& c) { c.truncate(4000); }, {"4000"}},
        {"the release before", [](QByteArray& c) { c[0x14] = 0; }, {"Jet 3"}},
        {"the release after", [](QByteArray& c) { c[0x14] = 2; }, {"νεότερη"}},
        {"a later mark", [](QByteArray& c) { c.replace(4, 15, "Standard ACE DB"); }, {"νεότερη"}},
        {"encrypted pages", [](QByteArray& c) { c[0x3E] = 0; }, {"κρυπτογραφημένες"}},
        {"another mark", [](QByteArray& c) { c[4] = 'x'; }, {"Jet 4.0"}},
    };
    for (const auto& [what, harm, said] : cases) {
        QByteArray content = original;
        harm(content);
        const std::string message = complaint(content);
        for (const char* const part : said)
            EXPECT_NE(message.find(part), std::string::npos) << what << ": " << message;
    }
}

TEST(JetDamage, thatIsCollectedCostsNoMoreThanWhatItHit)
{
    const QByteArray original = mainFile("v1");
    const SoundFile sound(original);
    JetDamage none(JetDamage::Answer::Collect);
    const std::uint64_t all = readAll(original, none);
    EXPECT_EQ(none.count(), 0u);
    const struct {
        const char* what;
        std::function<void(QByteArray&)> harm;
        std::uint64_t rowsLost;
        std::uint64_t counted;
    } cases[] = {
        {"a date that is no number", [&](QByteArray& c) { put(c, sound.row("tameio", 0) + 2 + 4, "000000000000f87f"); },
            1, 1},
        {"a number that is taken",
            [&](QByteArray& c) { c.replace(sound.row("tameio", 1) + 2, 4, c.mid(sound.row("tameio", 0) + 2, 4)); }, 1,
            1},
        {"a first row without beginning, where the next one would end",
            [&](QByteArray& c) { put(c, sound.slot("kvdikoi", 0), "0400"); }, 2, 3},
        {"a lost map, for which the owners of the pages stand in",
            [&](QByteArray& c) { put(c, sound.usageMap("kinhseis"), "07"); }, 0, 1},
        {"a lost version, in a book that has no memorandum column yet",
            [&](QByteArray& c) { put(c, sound.definition("taytothta"), "01"); }, 1, 1},
    };
    for (const auto& [what, harm, rowsLost, counted] : cases) {
        QByteArray content = original;
        harm(content);
        JetDamage damage(JetDamage::Answer::Collect);
        EXPECT_EQ(readAll(content, damage), all - rowsLost) << what;
        EXPECT_EQ(damage.count(), counted) << what;
        for (const JetError& error : damage.listed())
            EXPECT_FALSE(error.place().table.isEmpty()) << what << error.what();
    }
}

TEST(JetDamage, ofAnyKindEndsInRowsOrAnError)
{
    std::mt19937 random(20);
    int taken = 0;
    int refused = 0;
    for (const auto& [book, rounds] : {std::pair("empty", 2 * damageRounds()), std::pair("v1", damageRounds())}) {
        const QByteArray original = mainFile(book);
        for (int round = 0; round < rounds; ++round) {
            QByteArray content = original;
            for (auto changes = 1 + random() % 12; changes > 0; --changes) {
                // Most of a page is rows; its head and the slots get half of the changes.
                const auto inPage = random() % 2 == 0 ? random() % 80 : random() % JetFile::pageSize;
                const auto page = random() % (static_cast<unsigned>(content.size()) / JetFile::pageSize);
                static const unsigned values[] = {0, 1, 0xFF, 0x80, 0x40};
                const unsigned value = random() % 2 == 0 ? values[random() % 5] : static_cast<unsigned>(random());
                content[static_cast<qsizetype>(page) * JetFile::pageSize + inPage] = static_cast<char>(value);
            }
            ++(complaint(content).empty() ? taken : refused);
            try {
                JetDamage damage(JetDamage::Answer::Collect);
                (void)readAll(content, damage);
            } catch (const JetError&) { // header or catalogue
            }
        }
    }
    std::cout << "changed copies taken " << taken << ", refused " << refused << '\n';
    EXPECT_GT(taken, 100);
    EXPECT_GT(refused, 300);
}

} // namespace lorvan::test
