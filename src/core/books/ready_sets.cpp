#include "books/ready_sets.h"

#include "codes/code_maintenance.h"
#include "codes/group_maintenance.h"

#include <numeric>
#include <stdexcept>
#include <variant>

namespace lorvan {
namespace {

constexpr bool income = true;

using Group = ReadySet::Group;

Group money()
{
    return {QStringLiteral("ΤΡΑΠΕΖΕΣ"),
        {{130, QStringLiteral("ΑΝΑΛΗΨΗ ΑΠΟ ΤΡΑΠΕΖΑ"), income}, {300, QStringLiteral("ΚΑΤΑΘΕΣΗ ΣΕ ΤΡΑΠΕΖΑ")},
            {301, QStringLiteral("ΚΑΤΑΘΕΣΗ ΕΠΙΤΑΓΗΣ")}, {302, QStringLiteral("ΕΞΟΔΑ ΤΡΑΠΕΖΑΣ")}}};
}

Group taxes()
{
    return {QStringLiteral("ΦΟΡΟΙ - ΤΕΛΗ"),
        {{310, QStringLiteral("Φ.Π.Α.")}, {311, QStringLiteral("ΦΟΡΟΣ ΕΙΣΟΔΗΜΑΤΟΣ")},
            {312, QStringLiteral("ΔΗΜΟΤΙΚΑ ΤΕΛΗ")}}};
}

Group staff()
{
    return {QStringLiteral("ΠΡΟΣΩΠΙΚΟ"),
        {{210, QStringLiteral("ΜΙΣΘΟΔΟΣΙΑ")}, {211, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ ΜΙΣΘΟΥ")},
            {213, QStringLiteral("ΕΙΣΦΟΡΕΣ ΕΦΚΑ")}}};
}

/// Rent and bills, with what only one kind of business has.
Group running(std::vector<ReadySet::Code> more)
{
    Group group{QStringLiteral("ΛΕΙΤΟΥΡΓΙΚΑ ΕΞΟΔΑ"),
        {{220, QStringLiteral("ΕΝΟΙΚΙΟ")}, {221, QStringLiteral("ΗΛΕΚΤΡΙΚΟ ΡΕΥΜΑ")}, {222, QStringLiteral("ΥΔΡΕΥΣΗ")},
            {223, QStringLiteral("ΤΗΛΕΦΩΝΑ")}, {224, QStringLiteral("ΓΡΑΦΙΚΗ ΥΛΗ")},
            {225, QStringLiteral("ΚΑΘΑΡΙΟΤΗΤΑ")}, {226, QStringLiteral("ΕΠΙΣΚΕΥΕΣ - ΣΥΝΤΗΡΗΣΗ")},
            {229, QStringLiteral("ΜΙΚΡΟΕΞΟΔΑ")}}};
    group.codes.insert(group.codes.end(), more.begin(), more.end());
    return group;
}

ReadySet shop()
{
    return {QStringLiteral("Κατάστημα"),
        {{QStringLiteral("ΠΩΛΗΣΕΙΣ"),
             {{100, QStringLiteral("ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ"), income}, {101, QStringLiteral("ΠΩΛΗΣΕΙΣ ΧΟΝΔΡΙΚΗΣ"), income},
                 {102, QStringLiteral("ΠΩΛΗΣΕΙΣ ΜΕ ΚΑΡΤΑ"), income}, {105, QStringLiteral("ΕΠΙΣΤΡΟΦΕΣ ΠΩΛΗΣΕΩΝ")}}},
            {QStringLiteral("ΠΕΛΑΤΕΣ"),
                {{110, QStringLiteral("ΕΙΣΠΡΑΞΗ ΑΠΟ ΠΕΛΑΤΗ"), income}, {111, QStringLiteral("ΕΠΙΤΑΓΗ ΠΕΛΑΤΗ"), income},
                    {112, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ ΠΕΛΑΤΗ"), income}}},
            {QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), {{120, QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), income}}},
            {QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ"),
                {{200, QStringLiteral("ΑΓΟΡΕΣ ΕΜΠΟΡΕΥΜΑΤΩΝ")}, {201, QStringLiteral("ΠΛΗΡΩΜΗ ΠΡΟΜΗΘΕΥΤΗ")},
                    {204, QStringLiteral("ΠΛΗΡΩΜΗ ΜΕ ΕΠΙΤΑΓΗ")}, {205, QStringLiteral("ΜΕΤΑΦΟΡΙΚΑ ΑΓΟΡΩΝ")}}},
            staff(), running({{228, QStringLiteral("ΔΙΑΦΗΜΙΣΗ")}}), money(), taxes()}};
}

ReadySet office()
{
    return {QStringLiteral("Γραφείο"),
        {{QStringLiteral("ΑΜΟΙΒΕΣ"),
             {{100, QStringLiteral("ΑΜΟΙΒΕΣ ΥΠΗΡΕΣΙΩΝ"), income}, {101, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ ΑΜΟΙΒΗΣ"), income},
                 {102, QStringLiteral("ΣΥΝΔΡΟΜΕΣ ΠΕΛΑΤΩΝ"), income}}},
            {QStringLiteral("ΕΞΟΔΑ ΠΕΛΑΤΩΝ"),
                {{110, QStringLiteral("ΕΙΣΠΡΑΞΗ ΕΞΟΔΩΝ ΠΕΛΑΤΗ"), income}, {206, QStringLiteral("ΠΛΗΡΩΜΗ ΓΙΑ ΠΕΛΑΤΗ")},
                    {207, QStringLiteral("ΠΑΡΑΒΟΛΑ - ΕΝΣΗΜΑ")}}},
            {QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), {{120, QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), income}}},
            {QStringLiteral("ΣΥΝΕΡΓΑΤΕΣ"),
                {{208, QStringLiteral("ΑΜΟΙΒΕΣ ΤΡΙΤΩΝ")}, {209, QStringLiteral("ΕΞΟΔΑ ΤΑΞΙΔΙΩΝ")}}},
            staff(), running({{230, QStringLiteral("ΤΑΧΥΔΡΟΜΙΚΑ")}, {232, QStringLiteral("ΛΟΓΙΣΜΙΚΟ - ΣΥΝΔΡΟΜΕΣ")}}),
            money(), taxes()}};
}

ReadySet restaurant()
{
    return {QStringLiteral("Εστίαση"),
        {{QStringLiteral("ΕΙΣΠΡΑΞΕΙΣ"),
             {{100, QStringLiteral("ΕΙΣΠΡΑΞΕΙΣ ΣΑΛΑΣ"), income}, {101, QStringLiteral("ΕΙΣΠΡΑΞΕΙΣ ΠΑΚΕΤΟΥ"), income},
                 {102, QStringLiteral("ΕΙΣΠΡΑΞΕΙΣ ΜΕ ΚΑΡΤΑ"), income}, {103, QStringLiteral("ΕΚΔΗΛΩΣΕΙΣ"), income}}},
            {QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), {{120, QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), income}}},
            {QStringLiteral("ΠΡΩΤΕΣ ΥΛΕΣ"),
                {{200, QStringLiteral("ΤΡΟΦΙΜΑ")}, {201, QStringLiteral("ΠΟΤΑ - ΑΝΑΨΥΚΤΙΚΑ")},
                    {202, QStringLiteral("ΜΑΝΑΒΙΚΗ")}, {203, QStringLiteral("ΚΡΕΑΤΑ - ΨΑΡΙΑ")},
                    {205, QStringLiteral("ΕΙΔΗ ΣΥΣΚΕΥΑΣΙΑΣ")}}},
            staff(),
            running({{227, QStringLiteral("ΥΓΡΑΕΡΙΟ - ΚΑΥΣΙΜΑ")}, {233, QStringLiteral("ΕΞΟΠΛΙΣΜΟΣ ΚΟΥΖΙΝΑΣ")}}),
            money(), taxes()}};
}

ReadySet club()
{
    return {QStringLiteral("Σύλλογος"),
        {{QStringLiteral("ΜΕΛΗ"),
             {{100, QStringLiteral("ΣΥΝΔΡΟΜΕΣ ΜΕΛΩΝ"), income}, {101, QStringLiteral("ΕΓΓΡΑΦΕΣ ΜΕΛΩΝ"), income}}},
            {QStringLiteral("ΔΩΡΕΕΣ"),
                {{110, QStringLiteral("ΔΩΡΕΕΣ"), income}, {111, QStringLiteral("ΧΟΡΗΓΙΕΣ"), income},
                    {112, QStringLiteral("ΕΠΙΧΟΡΗΓΗΣΕΙΣ"), income}}},
            {QStringLiteral("ΕΚΔΗΛΩΣΕΙΣ"),
                {{115, QStringLiteral("ΕΣΟΔΑ ΕΚΔΗΛΩΣΕΩΝ"), income},
                    {116, QStringLiteral("ΛΑΧΕΙΟΦΟΡΟΙ - ΠΑΖΑΡΙΑ"), income}, {240, QStringLiteral("ΕΞΟΔΑ ΕΚΔΗΛΩΣΕΩΝ")}}},
            {QStringLiteral("ΔΡΑΣΕΙΣ"),
                {{241, QStringLiteral("ΕΞΟΔΑ ΔΡΑΣΕΩΝ")}, {242, QStringLiteral("ΒΟΗΘΗΜΑΤΑ")},
                    {243, QStringLiteral("ΜΕΤΑΚΙΝΗΣΕΙΣ")}}},
            running({{230, QStringLiteral("ΤΑΧΥΔΡΟΜΙΚΑ")}}), money()}};
}

/// The alternative that was made; the others are refusals.
template <typename Made, typename Refusal> void insist(const std::variant<Made, Refusal>& result)
{
    if (std::holds_alternative<Refusal>(result))
        throw std::logic_error("a ready set does not fit the book");
}

} // namespace

std::size_t ReadySet::codeCount() const
{
    return std::accumulate(groups.begin(), groups.end(), std::size_t(0),
        [](std::size_t count, const Group& group) { return count + group.codes.size(); });
}

const std::vector<ReadySet>& readySets()
{
    static const std::vector<ReadySet> sets{shop(), office(), restaurant(), club()};
    return sets;
}

void addReadySet(Connection& main, const Authority& authority, const ReadySet& set)
{
    for (const Group& group : set.groups) {
        insist(addGroup(main, authority, group.name));
        for (const ReadySet::Code& code : group.codes)
            insist(
                insertCode(main, authority, {QString::number(code.number), code.description, group.name, code.income}));
    }
}

} // namespace lorvan
