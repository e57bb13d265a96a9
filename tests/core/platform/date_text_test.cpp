#include "platform/date_text.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan {

TEST(DateText, readsTypedDatesAndRefusesEverythingElse)
{
    const QDate today(2024, 2, 29);
    const QDate none;
    const struct {
        const char* text;
        QDate date;
    } cases[] = {
        {"12-03-2005", QDate(2005, 3, 12)},
        {" 1-2-2005 ", QDate(2005, 2, 1)},
        {"12/3.2005", QDate(2005, 3, 12)},
        {"5,12", QDate(2024, 12, 5)},
        {"29/2", QDate(2024, 2, 29)},
        {"1-1-00", QDate(2000, 1, 1)},
        {"1-1-29", QDate(2029, 1, 1)},
        {"1-1-30", QDate(1930, 1, 1)},
        {"1-1-99", QDate(1999, 1, 1)},
        {"29-02-2000", QDate(2000, 2, 29)},
        {"1-1-0100", QDate(100, 1, 1)},
        {"31-02-2005", none},
        {"29-02-1900", none},
        {"32-1-2005", none},
        {"0-1-2005", none},
        {"1-13-2005", none},
        {"2005-03-12", none},
        {"1-1-5", none},
        {"1-1-205", none},
        {"1-1-0099", none},
        {"1-1-12005", none},
        {"", none},
        {" ", none},
        {"20050312", none},
        {"12", none},
        {"1-2-2005-3", none},
        {"1--2005", none},
        {"-1-2-2005", none},
        {"12 03 2005", none},
        {"1-Ιαν-2005", none},
    };
    for (const auto& [text, date] : cases)
        EXPECT_EQ(readDate(QString::fromUtf8(text), today).value_or(none), date) << text;
    EXPECT_FALSE(readDate(QStringLiteral("29-2"), QDate(2023, 6, 1))) << "this year has no such day";
}

TEST(DateText, goesIntoTheFilesAndBack)
{
    EXPECT_EQ(dateText(QDate(2005, 3, 2)), QStringLiteral("02-03-2005"));
    EXPECT_EQ(dateText(QDate()), QString());
    EXPECT_EQ(storedDate(QDate(2005, 3, 2)), 20050302);
    EXPECT_EQ(storedDate(QDate()), 0);
    EXPECT_EQ(dateFromStored(20050302), QDate(2005, 3, 2));
    for (const qint64 noDate : {0LL, -20050302LL, 20050231LL, 20051301LL, 99999999999LL})
        EXPECT_FALSE(dateFromStored(noDate).isValid()) << noDate;
}

} // namespace lorvan
