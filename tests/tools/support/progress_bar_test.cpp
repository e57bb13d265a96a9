#include "support/command.h"
#include "support/progress_bar.h"

#include <gtest/gtest.h>

#include <sstream>

namespace lorvan::test {
namespace {

struct Drawing {
    std::ostringstream out;
    std::ostringstream errors;

    std::string of(int columns, std::chrono::milliseconds interval, std::int64_t done, std::int64_t whole)
    {
        errors.str({});
        const ToolContext context{out, errors, {}, Clock(), {}, columns};
        std::string drawn;
        {
            ProgressBar bar(context, QStringLiteral("Κινήσεις"), interval);
            bar.show(done, whole);
            drawn = errors.str();
        }
        const std::string erased = errors.str().substr(drawn.size());
        EXPECT_EQ(erased, drawn.empty() ? "" : "\r\x1b[K");
        return drawn.empty() ? drawn : drawn.substr(4);
    }
};

} // namespace

TEST(ProgressBar, fitsTheTerminalAndIsSilentWithoutOne)
{
    constexpr std::chrono::milliseconds atOnce{0};
    Drawing drawing;
    EXPECT_EQ(drawing.of(30, atOnce, 1, 2), "Κινήσεις [######.......]  50%");
    EXPECT_EQ(drawing.of(30, atOnce, 9, 3), "Κινήσεις [#############] 100%");
    EXPECT_EQ(drawing.of(30, atOnce, 5, 0), "Κινήσεις [.............]   0%");
    EXPECT_EQ(drawing.of(10, atOnce, 1, 4), "Κινή  25%");
    EXPECT_EQ(drawing.of(0, atOnce, 1, 2), "");
    EXPECT_EQ(drawing.of(30, std::chrono::hours(1), 1, 2), "") << "work that is soon done";
}

} // namespace lorvan::test
