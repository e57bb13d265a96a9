#include "controls/greek_texts_table.h"

namespace lorvan {
namespace {

constexpr GreekText table[] = {
    {"OK", "ΟΚ"},
    {"&OK", "&ΟΚ"},
    {"Cancel", "Άκυρο"},
    {"&Yes", "&Ναι"},
    {"&No", "Ό&χι"},
};

} // namespace

std::span<const GreekText> greekTexts()
{
    return table;
}

} // namespace lorvan
