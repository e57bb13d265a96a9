#include "platform/key_table.h"

#include <gtest/gtest.h>

namespace lorvan::test {

TEST(KeyTable, noKeyDoesTwoThingsInOnePlace)
{
    const std::vector<KeyEntry>& table = keyTable();
    for (auto one = table.begin(); one != table.end(); ++one) {
        for (auto other = std::next(one); other != table.end(); ++other) {
            for (const QString& keys : one->keys)
                EXPECT_FALSE(placesMeet(one->place, other->place) && other->keys.contains(keys))
                    << keys.toStdString() << ": " << one->does.toStdString() << ", " << other->does.toStdString();
        }
    }
    EXPECT_TRUE(placesMeet(KeyPlace::DayList, KeyPlace::MainWindow));
    EXPECT_FALSE(placesMeet(KeyPlace::DayList, KeyPlace::Preview));
}

TEST(KeyTable, namesTheKeysAsTheyStandOnAKeyboard)
{
    EXPECT_EQ(keysText(keyEntry(KeyUse::Store)), "Ctrl+Enter");
    EXPECT_EQ(
        keysText({KeyUse::Listed, {}, {"Shift+PgDown", "Up", "Ctrl++", "F3"}, {}}), "Shift+Page Down, ↑, Ctrl++, F3");
}

} // namespace lorvan::test
