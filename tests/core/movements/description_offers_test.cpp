#include "movements/description_offers.h"

#include "support/book_model.h"
#include "support/temporary_book.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(DescriptionOffers, theMostFrequentThenTheLatestGoesOn)
{
    const DescriptionOffers offers(
        {"ΔΕΗ ΜΑΪΟΥ", "Ενοίκιο", " ΕΝΟΙΚΙΟ", "ΔΕΗ ΑΠΡΙΛΙΟΥ", "ΔΕΗ ΑΠΡΙΛΙΟΥ", "ΔΕΘ", "", "δελτίο"});
    const std::pair<const char*, const char*> cases[] = {{"", ""}, {"Δ", "ΕΗ ΑΠΡΙΛΙΟΥ"}, {"ΔΕΗ Μ", "ΑΪΟΥ"},
        {"ΕΝΟΙ", "ΚΙΟ"}, {"ΕΝΟΊΚ", "ΙΟ"}, {"ΕΝΟΙΚΙΟ", ""}, {"ΔΕΛ", "ΤΊΟ"}, {"ΔΕΘ", ""}, {"ΗΔ", ""}, {" ", ""}};
    for (const auto& [typed, rest] : cases)
        EXPECT_EQ(offers.rest(QString::fromUtf8(typed)), rest) << typed;
    EXPECT_EQ(DescriptionOffers().rest("Α"), "");
}

TEST(DescriptionOffers, areThoseOfTheLast500MovementsOfTheCode)
{
    const TemporaryBook book;
    Connection main = book.openMain();
    const auto add = [&main](qint32 code, int day, const char* text) {
        main.prepare("INSERT INTO kinhseis (kvdikos, hmeromhnia, perigrafh) VALUES (?,?,?)")
            .bind(code, QDate(2020, 1, 1).addDays(day), QString(text))
            .run();
    };
    main.execute("BEGIN");
    add(7, 0, "ΑΠΟ ΑΛΛΟΝ");
    for (const int day : {1, 2})
        add(5, day, "ΑΡΧΑΙΑ");
    for (int day = 10; day < 510; ++day)
        add(5, day, day == 10 ? "ΑΡΓΑ" : "Β");
    main.execute("COMMIT");
    EXPECT_EQ(readDescriptionOffers(main, 5).rest("Α"), "ΡΓΑ");
    EXPECT_EQ(readDescriptionOffers(main, 7).rest("Α"), "ΠΟ ΑΛΛΟΝ");
}

} // namespace lorvan::test
