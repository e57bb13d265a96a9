#include "commands/findings_text.h"

namespace lorvan {
namespace {

constexpr std::size_t printedOfAKind = 20;

void print(const std::vector<CheckLine>& lines, std::ostream& out)
{
    for (const CheckLine& line : lines)
        out << line.text.toStdString() << '\n';
}

} // namespace

void printFindings(const BookFindings& findings, std::ostream& out)
{
    print(findingLines(findings, {QStringLiteral("το --repair"), printedOfAKind}), out);
}

void printTotals(const BookCheck& check, std::ostream& out)
{
    print(totalLines(check), out);
}

} // namespace lorvan
