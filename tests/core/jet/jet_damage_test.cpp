#include "jet/jet_catalogue.h"
#include "jet/jet_data_page.h"
#include "jet/jet_usage_map.h"
#include "legacy/legacy_book.h"
#include "support/files.h"

#include <gtest/gtest.h>

#include <random>

namespace lorvan::test {
namespace {

constexpr int soundRows = 624; // of the book "v1"

QByteArray mainFile(const char* book)
{
    return readFile(olderBook(QString::fromLatin1(book)) + "/lorvan.mdb");
}

/// Reads all tables of a main database: the rows read and the damage met, or why it is not taken. What leaves the
/// reader besides JetError is a fault.
std::string outcomeOf(const QByteArray& content, JetDamage::Answer answer)
{
    try {
        JetDamage damage(answer);
        LegacyBook book;
        const JetFile file("lorvan.mdb", content, damage);
        readLegacyTables(file, LegacyTable::File::Main, book, damage);
        const std::string met = damage.count() == 0 ? "" : ", damage " + std::to_string(damage.count());
        return std::to_string(book.rowCount()) + " rows" + met;
    } catch (const JetError& error) {
        return error.what();
    }
}

/// Finds places in a sound file, to be changed afterwards; all are positions in the whole file.
class SoundFile {
public:
    explicit SoundFile(const QByteArray& content)
        : m_file("x", content, m_damage)
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
        return m_catalogue.definitionOf(QString::fromLatin1(table)).page;
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

QByteArray bytesOf(JetRowPointer pointer)
{
    QByteArray bytes(1, static_cast<char>(pointer.row));
    for (int i = 0; i < 3; ++i)
        bytes += static_cast<char>(pointer.page >> (8 * i));
    return bytes;
}

/// 1,000 copies of a book with movements; LORVAN_DAMAGE_ROUNDS=100000 makes a soak run of it.
int damageRounds()
{
    const int wanted = qEnvironmentVariableIntValue("LORVAN_DAMAGE_ROUNDS");
    return wanted > 0 ? wanted : 1'000;
}

/// Expects what a strict reading says, and what is lost and counted where damage is collected, if it can be.
void expectOutcome(
    const QByteArray& content, const char* what, const std::vector<const char*>& said, int lost, int damage)
{
    const std::string message = outcomeOf(content, JetDamage::Answer::Refuse);
    for (const char* const part : said)
        EXPECT_NE(message.find(part), std::string::npos) << what << ": " << message;
    const std::string left = std::to_string(soundRows - lost) + " rows, damage " + std::to_string(damage);
    EXPECT_EQ(outcomeOf(content, JetDamage::Answer::Collect), damage > 0 ? left : message) << what;
}

} // namespace

TEST(JetDamage, isToldWithItsPlaceAndCostsNoMoreThanWhatItHit)
{
    const QByteArray original = mainFile("v1");
    const SoundFile sound(original);
    ASSERT_EQ(outcomeOf(original, JetDamage::Answer::Refuse), std::to_string(soundRows) + " rows");
    const qsizetype movements = sound.definition("kinhseis");
    const qsizetype name = original.indexOf(QByteArray("k\0v\0d\0i\0k\0o\0s\0", 14), movements);
    const QByteArray itself = QByteArray::number(movements / JetFile::pageSize, 16).rightJustified(2, '0');
    const struct {
        const char* what;
        qsizetype at;
        QByteArray bytes;
        std::vector<const char*> said;
        int lost = 0; ///< Rows, where damage is collected.
        int damage = 0; ///< None where it is refused then, too.
    } cases[] = {
        {"a circle of definition pages", movements + 4, itself, {"kinhseis", "κύκλο"}, 300, 1},
        {"a definition that is none", sound.definition("tameio"), "01", {"tameio", "είδους 1"}, 281, 1},
        {"a lost version", sound.definition("taytothta"), "01", {"taytothta", "είδους 1"}, 1, 1},
        {"a definition too long", sound.definition("tameio") + 8, "ffffff7f", {"tameio", "2147483647"}, 281, 1},
        {"too many index blocks", sound.definition("tameio") + 51, "ffffffff", {"tameio", "byte"}, 281, 1},
        {"300 columns ever", sound.definition("omades") + 41, "2c01", {"omades", "300"}, 7, 1},
        {"a row more than there are", movements + 16, "2d010000", {"kinhseis", "300", "301"}, 0, 1},
        {"a column that is called otherwise", name, "78", {"kinhseis", "kvdikos", "λείπει"}, 300, 1},
        {"a usage map of no known form", sound.usageMap("tameio"), "07", {"tameio", "είδους 7"}, 0, 1},
        {"a usage map without its page", sound.usageMap("tameio"), "00ff000000", {"tameio", "βρέθηκαν 0"}, 281, 1},
        {"more slots than room for them", sound.dataPage("kvdikoi") + 12, "f90f", {"kvdikoi", "σελίδα", "4089"}, 35, 2},
        {"a row within the slots", sound.slot("kvdikoi", 0), "0400", {"kvdikoi", "γραμμή 0", "4 ως 4096"}, 2, 3},
        {"more columns than ever were", sound.row("kvdikoi", 0), "ff00", {"kvdikoi", "255"}, 1, 1},
        {"a date that is none", sound.row("tameio", 0) + 6, "000000000000f87f", {"tameio", "hmeromhnia", "nan"}, 1, 1},
        {"a number that is taken", sound.row("tameio", 1) + 2, original.mid(sound.row("tameio", 0) + 2, 4).toHex(),
            {"tameio", "aa", "υπάρχει και άλλη γραμμή"}, 1, 1},
        {"the release before", 0x14, "00", {"Jet 3"}},
        {"the release after", 0x14, "02", {"νεότερη"}},
        {"a later mark", 4, QByteArray("Standard ACE DB").toHex(), {"νεότερη"}},
        {"encrypted pages", 0x3E, "00", {"κρυπτογραφημένες"}},
        {"another mark", 4, "78", {"Jet 4.0"}},
    };
    for (const auto& [what, at, bytes, said, lost, damage] : cases)
        expectOutcome(
            QByteArray(original).replace(at, bytes.size() / 2, QByteArray::fromHex(bytes)), what, said, lost, damage);
    expectOutcome(original.chopped(100), "a page cut off", {"κομμένο", "3996"}, 0, 2);
    expectOutcome(original.first(4000), "less than a page", {"4000"}, 0, 0);
    expectOutcome({}, "nothing", {"κενό"}, 0, 0);
}

TEST(JetDamage, ofARowThatWasMovedIsTold)
{
    const QByteArray original = mainFile("v1");
    const SoundFile sound(original);
    const std::pair<JetRowPointer, const char*> targets[] = {
        {sound.pointerTo("tameio", 1), "διαβάζεται και από αλλού"},
        {sound.pointerTo("tameio", 0), "διαβάζεται και από αλλού"},
        {sound.pointerTo("kvdikoi", 0), "άλλου πίνακα"},
        {{0xFFFFFF, 0}, "16777215"},
    };
    for (const auto& [target, said] : targets) {
        QByteArray content = original;
        const qsizetype slot = sound.slot("tameio", sound.slotOfRow("tameio", 0));
        content[slot + 1] = static_cast<char>(content[slot + 1] | 0x40);
        content.replace(sound.row("tameio", 0), 4, bytesOf(target));
        expectOutcome(content, "moved", {"tameio", said}, 1, 1);
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
            ++(outcomeOf(content, JetDamage::Answer::Refuse).ends_with(" rows") ? taken : refused);
            (void)outcomeOf(content, JetDamage::Answer::Collect);
        }
    }
    std::cout << "changed copies taken " << taken << ", refused " << refused << '\n';
    EXPECT_GT(taken, 100);
    EXPECT_GT(refused, 300);
}

} // namespace lorvan::test
