#include "platform/engine/sql_functions.h"

#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/greek_collation.h"
#include "platform/engine/sql_error.h"

#include <sqlite3.h>

namespace lorvan {
namespace {

QString argument(sqlite3_value* value)
{
    const unsigned char* utf8 = sqlite3_value_text(value);
    return QString::fromUtf8(reinterpret_cast<const char*>(utf8), sqlite3_value_bytes(value));
}

void cdate(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const auto date = readDate(argument(arguments[0]), QDate::currentDate());
    if (date)
        sqlite3_result_int64(context, storedDate(*date));
    else
        sqlite3_result_error(context, "cdate: not a date", -1);
}

void csng(sqlite3_context* context, int, sqlite3_value** arguments)
{
    const auto amount = readAmount(argument(arguments[0]));
    if (amount)
        sqlite3_result_int64(context, amount.amount.tenThousandths());
    else
        sqlite3_result_error(context, "csng: not a number", -1);
}

void amountAdd(sqlite3_context* context, int, sqlite3_value** arguments)
{
    sqlite3_int64 sum = 0;
    if (__builtin_add_overflow(sqlite3_value_int64(arguments[0]), sqlite3_value_int64(arguments[1]), &sum))
        sqlite3_result_error(context, amountOverflowMessage, -1);
    else
        sqlite3_result_int64(context, sum);
}

int compareGreek(void* collation, int leftBytes, const void* left, int rightBytes, const void* right)
{
    return static_cast<const GreekCollation*>(collation)->compare(
        QString::fromUtf8(static_cast<const char*>(left), leftBytes),
        QString::fromUtf8(static_cast<const char*>(right), rightBytes));
}

void destroyCollation(void* collation)
{
    delete static_cast<GreekCollation*>(collation);
}

using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

void addFunction(sqlite3* connection, const char* name, int arguments, Function function)
{
    const int code = sqlite3_create_function_v2(
        connection, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, function, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        throw SqlError::fromConnection(connection, code, QString::fromLatin1(name));
}

} // namespace

void registerSqlFunctions(sqlite3* connection)
{
    addFunction(connection, "cdate", 1, cdate);
    addFunction(connection, "csng", 1, csng);
    addFunction(connection, "amount_add", 2, amountAdd);
    auto* const collation = new GreekCollation;
    const int code =
        sqlite3_create_collation_v2(connection, "greek", SQLITE_UTF8, collation, compareGreek, destroyCollation);
    if (code != SQLITE_OK) {
        delete collation; // the engine does not call the destructor when it refuses
        throw SqlError::fromConnection(connection, code, QStringLiteral("greek"));
    }
}

} // namespace lorvan
