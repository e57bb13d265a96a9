#include "platform/work_pace.h"

#include <gtest/gtest.h>

namespace lorvan::test {

using namespace std::chrono_literals;

TEST(WorkPace, tellsTheTimeLeftOnlyOnceItCanBeJudged)
{
    const WorkPace::Time start(1h);
    WorkPace pace;
    const auto after = [&](std::chrono::milliseconds time, qint64 done, qint64 whole) {
        pace.note(done, whole, start + time);
        return pace.timeLeft().toStdString();
    };
    EXPECT_EQ(after(0s, 0, 1000), "");
    EXPECT_EQ(after(2s, 500, 1000), "") << "too early";
    EXPECT_EQ(after(10s, 10, 1000), "") << "a new step";
    EXPECT_EQ(after(15s, 110, 1000), "ακόμη περίπου 50 δευτερόλεπτα");
    EXPECT_EQ(after(15500ms, 900, 1000), "ακόμη περίπου 50 δευτερόλεπτα") << "no flicker";
    EXPECT_EQ(after(20s, 950, 1000), "ακόμη λίγα δευτερόλεπτα");
    EXPECT_EQ(after(21s, 1000, 1000), "");
    EXPECT_EQ(after(30s, 5, 0), "") << "no end known";
    EXPECT_EQ(after(90s, 15, 0), "");

    for (const auto& [seconds, text] : {std::pair(51s, "περίπου 1 λεπτό"), {61s, "περίπου 2 λεπτά"},
             {3600s, "περίπου 60 λεπτά"}, {3601s, "περίπου 2 ώρες"}})
        EXPECT_EQ(roughDuration(seconds).toStdString(), text);
}

} // namespace lorvan::test
