#include "csv/book_tables.h"

#include "book/book_schema.h"

namespace lorvan {

const std::vector<BookTable>& bookTables()
{
    using Kind = BookColumn::Kind;
    using Database = BookTable::Database;
    static const std::vector<BookTable> tables{
        {"kinhseis", Database::Main,
            {{"aa", Kind::Whole}, {"kvdikos", Kind::Whole}, {"hmeromhnia", Kind::Date}, {"perigrafh", Kind::Text},
                {"esoda", Kind::Amount}, {"ejoda", Kind::Amount}, {"aa_omada", Kind::Whole}, {"grammh", Kind::Text},
                {"epitagh", Kind::Flag}, {"L_tajeos", Kind::Amount}}},
        {"tameio", Database::Main,
            {{"aa", Kind::Whole}, {"hmeromhnia", Kind::Date}, {"esoda", Kind::Amount}, {"ejoda", Kind::Amount},
                {"ypoloipo", Kind::Amount}}},
        {"kvdikoi", Database::Main,
            {{"aa", Kind::Whole}, {"kvdikos", Kind::Whole}, {"perigrafh", Kind::Text}, {"omada", Kind::Text},
                {"aa_omadas", Kind::Whole}, {"lista", Kind::Text}, {"esodo", Kind::Flag}, {"energos", Kind::Flag}}},
        {"omades", Database::Main, {{"aa", Kind::Whole}, {"sxolia", Kind::Text}, {"perigrafh", Kind::Text}}},
        {"taytothta", Database::Main, {{"ariumos", Kind::Whole}}},
        {"sqlite_sequence", Database::Main, {{"name", Kind::Text}, {"seq", Kind::Whole}}},
        {"taken_imports", Database::Main,
            {{"id", Kind::Whole}, {"digest", Kind::Text}, {"at", Kind::Whole}, {"groups", Kind::Whole},
                {"codes", Kind::Whole}, {"movements", Kind::Whole}}},
        {openingDifferenceTable, Database::Main, {{"day", Kind::Date}, {"amount", Kind::Amount}}},
        {journalTable, Database::Main,
            {{"id", Kind::Whole}, {"at", Kind::Whole}, {"user", Kind::Text}, {"computer", Kind::Text},
                {"action", Kind::Text}, {"subject", Kind::Text}, {"day", Kind::Date}, {"code", Kind::Whole},
                {"before", Kind::Text}, {"after", Kind::Text}, {"previous", Kind::Text}, {"hash", Kind::Text}}},
        {sealsTable, Database::Auxiliary,
            {{"id", Kind::Whole}, {"at", Kind::Whole}, {"user", Kind::Text}, {"computer", Kind::Text},
                {"day", Kind::Date}, {"version", Kind::Whole}, {"late", Kind::Flag}, {"income", Kind::Amount},
                {"expense", Kind::Amount}, {"movements", Kind::Whole}, {"content", Kind::Text},
                {"previous", Kind::Text}, {"journal", Kind::Text}, {"hash", Kind::Text}, {"carried", Kind::Amount},
                {"balance", Kind::Amount}, {"balance_hash", Kind::Text}, {"counted", Kind::Text}}},
        {"klhsimotameioy", Database::Auxiliary, {{"aa", Kind::Whole}, {"hmeraklhsimatos", Kind::Date}}},
        {"codes", Database::Auxiliary,
            {{"uname", Kind::Text}, {"upass", Kind::Password}, {"r_eggrafes", Kind::Flag}, {"r_klhsimo", Kind::Flag},
                {"r_kvdikoi", Kind::Flag}}},
    };
    return tables;
}

} // namespace lorvan
