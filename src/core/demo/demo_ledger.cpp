#include "demo/demo_ledger.h"

#include <algorithm>
#include <array>
#include <deque>
#include <map>
#include <random>

namespace lorvan {
namespace {

using Cents = std::int64_t;

constexpr int month = 25;
constexpr int quarter = 3 * month;

constexpr Cents openingCash = 1'800'00;
constexpr Cents leastCash = 250'00; ///< Before a payment would go below it, money is fetched from the bank.
constexpr Cents mostCash = 3'500'00; ///< A day that would end above it ends with a deposit.
constexpr Cents cashLeftByDeposit = 1'300'00;
constexpr Cents wholeNotes = 50'00;

constexpr int daysUntilChequeIsUsed = 9;
constexpr int vatPercent = 24;

enum class Details { None, Customer, Invoice };

/// A recurring movement: on days whose number divided by `period` leaves `day`, on `percent` in a hundred of these, for
/// an amount between two bounds in steps.
struct Habit {
    qint32 code;
    bool income;
    int period;
    int day;
    int percent;
    Cents from;
    Cents to;
    Cents step;
    QString description;
    Details details = Details::None;
};

const std::vector<Habit>& morning()
{
    static const std::vector<Habit> habits{
        {100, true, 1, 0, 100, 180'00, 560'00, 10, QStringLiteral("ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ ΠΡΩΙ")},
        {102, true, 1, 0, 45, 60'00, 280'00, 10, QStringLiteral("ΧΡΩΜΑΤΑ")},
        {101, true, 1, 0, 60, 80'00, 600'00, 1, QStringLiteral("ΧΟΝΔΡΙΚΗ"), Details::Customer},
        {110, true, 1, 0, 80, 30'00, 450'00, 1, QStringLiteral("ΕΙΣΠΡΑΞΗ"), Details::Customer},
        {112, true, month, 11, 60, 50'00, 400'00, 50'00, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ"), Details::Customer},
        {113, false, 1, 0, 6, 5'00, 60'00, 10, QStringLiteral("ΕΠΙΣΤΡΟΦΗ"), Details::Customer},
        {103, true, 1, 0, 30, 4'00, 36'00, 50, QStringLiteral("ΚΛΕΙΔΙΑ")},
        {200, false, 3, 1, 85, 180'00, 1'250'00, 1, QStringLiteral("ΕΡΓΑΛΕΙΑ"), Details::Invoice},
        {201, false, 3, 2, 80, 220'00, 1'100'00, 1, QStringLiteral("ΧΡΩΜΑΤΑ"), Details::Invoice},
        {202, false, 3, 0, 75, 150'00, 900'00, 1, QStringLiteral("ΣΙΔΗΡΙΚΑ"), Details::Invoice},
        {203, false, 3, 1, 70, 120'00, 850'00, 1, QStringLiteral("ΥΔΡΑΥΛΙΚΑ"), Details::Invoice},
        {205, false, 6, 1, 60, 12'00, 65'00, 10, QStringLiteral("ΜΕΤΑΦΟΡΙΚΑ ΑΓΟΡΩΝ")},
        {220, false, month, 0, 100, 780'00, 780'00, 1, QStringLiteral("ΕΝΟΙΚΙΟ ΚΑΤΑΣΤΗΜΑΤΟΣ")},
        {225, false, month, 1, 100, 90'00, 90'00, 1, QStringLiteral("ΚΑΘΑΡΙΣΜΟΣ ΚΑΤΑΣΤΗΜΑΤΟΣ")},
        {223, false, month, 5, 100, 41'00, 78'00, 1, QStringLiteral("ΤΗΛΕΦΩΝΑ ΚΑΤΑΣΤΗΜΑΤΟΣ")},
        {221, false, 2 * month, 8, 100, 165'00, 395'00, 1, QStringLiteral("ΛΟΓΑΡΙΑΣΜΟΣ ΡΕΥΜΑΤΟΣ")},
        {222, false, quarter, 9, 100, 32'00, 74'00, 1, QStringLiteral("ΛΟΓΑΡΙΑΣΜΟΣ ΥΔΡΕΥΣΗΣ")},
        {310, false, quarter, 20, 100, 640'00, 1'780'00, 1, QStringLiteral("ΑΠΟΔΟΣΗ Φ.Π.Α. ΤΡΙΜΗΝΟΥ")},
        {311, false, 2 * month, 20, 100, 85'00, 160'00, 1, QStringLiteral("ΦΟΡΟΣ ΜΙΣΘΩΤΩΝ ΔΙΜΗΝΟΥ")},
        {312, false, 6 * month, 15, 100, 48'00, 92'00, 1, QStringLiteral("ΔΗΜΟΤΙΚΑ ΤΕΛΗ ΚΑΙ ΚΑΘΑΡΙΟΤΗΤΑ")},
        {213, false, month, 23, 100, 412'00, 448'00, 1, QStringLiteral("ΕΙΣΦΟΡΕΣ ΕΦΚΑ ΜΗΝΑ")},
    };
    return habits;
}

const std::vector<Habit>& afternoon()
{
    static const std::vector<Habit> habits{
        {110, true, 1, 0, 60, 20'00, 320'00, 1, QStringLiteral("ΕΝΑΝΤΙ ΛΟΓΑΡΙΑΣΜΟΥ"), Details::Customer},
        {227, false, 6, 0, 80, 25'00, 70'00, 5'00, QStringLiteral("ΚΑΥΣΙΜΑ ΦΟΡΤΗΓΟΥ")},
        {224, false, 12, 5, 60, 8'00, 55'00, 5, QStringLiteral("ΓΡΑΦΙΚΗ ΥΛΗ")},
        {230, false, 6, 2, 30, 3'50, 18'00, 10, QStringLiteral("ΤΑΧΥΔΡΟΜΙΚΑ")},
        {229, false, 1, 0, 55, 2'50, 24'00, 10, QStringLiteral("ΜΙΚΡΟΕΞΟΔΑ ΗΜΕΡΑΣ")},
        {226, false, month, 13, 45, 40'00, 260'00, 5'00, QStringLiteral("ΕΠΙΣΚΕΥΗ ΜΗΧΑΝΗΜΑΤΟΣ ΚΟΠΗΣ")},
        {228, false, month, 17, 55, 60'00, 180'00, 10'00, QStringLiteral("ΚΑΤΑΧΩΡΙΣΗ ΣΕ ΕΦΗΜΕΡΙΔΑ")},
        {302, false, month, 24, 100, 4'00, 19'00, 5, QStringLiteral("ΕΞΟΔΑ ΛΟΓΑΡΙΑΣΜΟΥ")},
        {211, false, month, 12, 70, 100'00, 250'00, 50'00, QStringLiteral("ΕΝΑΝΤΙ ΜΙΣΘΟΥ ΝΙΚΟΣ")},
        {212, false, month, 18, 40, 35'00, 120'00, 5'00, QStringLiteral("ΥΠΕΡΩΡΙΕΣ ΑΠΟΘΗΚΗΣ")},
        {210, false, month, 24, 100, 835'00, 835'00, 1, QStringLiteral("ΜΙΣΘΟΔΟΣΙΑ ΝΙΚΟΣ")},
        {210, false, month, 24, 100, 790'00, 790'00, 1, QStringLiteral("ΜΙΣΘΟΔΟΣΙΑ ΕΛΕΝΗ")},
        {231, false, quarter, 6, 50, 5'00, 12'00, 10, QStringLiteral("ΜΕΛΑΝΙ ΤΗΛΕΟΜΟΙΟΤΥΠΟΥ")},
        {104, true, 6, 4, 75, 15'00, 90'00, 5'00, QStringLiteral("ΕΝΟΙΚΙΑΣΗ ΤΡΥΠΑΝΙΟΥ")},
        {121, true, 6, 3, 55, 10'00, 45'00, 5'00, QStringLiteral("ΜΕΤΑΦΟΡΙΚΑ"), Details::Customer},
        {122, true, quarter, 22, 100, 45'00, 210'00, 1, QStringLiteral("ΕΚΠΤΩΣΗ ΤΖΙΡΟΥ ΑΠΟ ΠΡΟΜΗΘΕΥΤΗ")},
        {120, true, month, 7, 50, 10'00, 85'00, 10, QStringLiteral("ΠΩΛΗΣΗ ΑΧΡΗΣΤΩΝ ΥΛΙΚΩΝ")},
        {100, true, 1, 0, 65, 120'00, 480'00, 10, QStringLiteral("ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ ΑΠΟΓΕΥΜΑ")},
    };
    return habits;
}

const std::array customers{QStringLiteral("ΠΑΠΑΔΟΠΟΥΛΟΣ"), QStringLiteral("ΓΕΩΡΓΙΟΥ ΑΕ"), QStringLiteral("ΔΗΜΗΤΡΙΟΥ"),
    QStringLiteral("ΤΕΧΝΙΚΗ ΑΙΓΑΙΟΥ ΕΠΕ"), QStringLiteral("ΟΙΚΟΝΟΜΟΥ"), QStringLiteral("ΝΙΚΟΛΑΟΥ"),
    QStringLiteral("ΑΦΟΙ ΚΑΡΡΑ ΟΕ"), QStringLiteral("ΑΝΤΩΝΙΟΥ"), QStringLiteral("ΜΙΧΑΗΛΙΔΗΣ"),
    QStringLiteral("ΟΙΚΟΔΟΜΙΚΗ ΛΑΡΙΣΑΣ ΑΕ"), QStringLiteral("ΒΑΣΙΛΕΙΟΥ"), QStringLiteral("ΣΤΑΘΟΠΟΥΛΟΥ")};

/// The same numbers on every machine, which the standard library's distributions do not guarantee.
class Random {
public:
    explicit Random(std::uint64_t seed)
        : m_engine(seed)
    {
    }
    std::int64_t between(std::int64_t low, std::int64_t high)
    {
        return low + static_cast<std::int64_t>(m_engine() % static_cast<std::uint64_t>(high - low + 1));
    }
    bool happens(int percent) { return between(1, 100) <= percent; }

private:
    std::mt19937_64 m_engine;
};

struct Cheque {
    Cents amount;
    QString drawer;
    int usedOn; ///< The working day on which it goes to the bank or to a supplier.
};

class Shop {
public:
    explicit Shop(std::uint64_t seed)
        : m_random(seed)
    {
    }

    DemoDay nextDay()
    {
        DemoDay day;
        if (m_today == 0)
            receive(day, 123, QStringLiteral("ΜΕΤΡΗΤΑ ΕΝΑΡΞΗΣ"), openingCash);
        follow(morning(), day);
        takeCheque(day);
        useCheques(day);
        follow(afternoon(), day);
        depositSurplus(day);
        ++m_today;
        return day;
    }

private:
    void follow(const std::vector<Habit>& habits, DemoDay& day)
    {
        for (const Habit& habit : habits) {
            if (m_today % habit.period != habit.day || !m_random.happens(habit.percent))
                continue;
            const Cents amount = habit.from + habit.step * m_random.between(0, (habit.to - habit.from) / habit.step);
            if (habit.income)
                receive(day, habit.code, describe(habit), amount);
            else
                pay(day, habit, amount);
        }
    }

    QString describe(const Habit& habit)
    {
        switch (habit.details) {
        case Details::None:
            return habit.description;
        case Details::Customer:
            return habit.description + u' ' + customer();
        case Details::Invoice:
            m_invoices[habit.code] += m_random.between(1, 40);
            return habit.description + QStringLiteral(" ΤΙΜ ") + QString::number(1000 + m_invoices[habit.code]);
        }
        return habit.description;
    }

    QString customer() { return customers.at(static_cast<std::size_t>(m_random.between(0, customers.size() - 1))); }

    void receive(DemoDay& day, qint32 code, const QString& description, Cents amount)
    {
        day.push_back({code, {}, description, Currency::fromCents(amount), {}, {}, false});
        m_cash += amount;
    }

    void spend(DemoDay& day, qint32 code, const QString& description, Cents amount)
    {
        day.push_back({code, {}, description, {}, Currency::fromCents(amount), {}, false});
        m_cash -= amount;
    }

    void pay(DemoDay& day, const Habit& habit, Cents amount)
    {
        if (m_cash - amount < leastCash) {
            const Cents missing = amount + leastCash - m_cash;
            receive(day, 130, QStringLiteral("ΑΝΑΛΗΨΗ ΓΙΑ ΠΛΗΡΩΜΕΣ"), (missing / wholeNotes + 1) * wholeNotes);
        }
        spend(day, habit.code, describe(habit), amount);
        if (habit.details == Details::Invoice)
            day.back().memorandum = Currency::fromCents((amount * vatPercent + 50) / 100);
    }

    void takeCheque(DemoDay& day)
    {
        if (!m_random.happens(14))
            return;
        const Cheque cheque{m_random.between(180'00, 1'600'00), customer(), m_today + daysUntilChequeIsUsed};
        day.push_back(
            {111, {}, QStringLiteral("ΕΠΙΤΑΓΗ ") + cheque.drawer, Currency::fromCents(cheque.amount), {}, {}, true});
        m_cheques.push_back(cheque);
    }

    void useCheques(DemoDay& day)
    {
        while (!m_cheques.empty() && m_cheques.front().usedOn <= m_today) {
            const Cheque& cheque = m_cheques.front();
            const bool toSupplier = m_random.happens(30);
            const QString description =
                (toSupplier ? QStringLiteral("ΜΕ ΕΠΙΤΑΓΗ ") : QStringLiteral("ΚΑΤΑΘΕΣΗ ΕΠΙΤΑΓΗΣ ")) + cheque.drawer;
            day.push_back({toSupplier ? 204 : 301, {}, description, {}, Currency::fromCents(cheque.amount), {}, true});
            m_cheques.pop_front();
        }
    }

    void depositSurplus(DemoDay& day)
    {
        if (m_cash > mostCash)
            spend(day, 300, QStringLiteral("ΚΑΤΑΘΕΣΗ"), (m_cash - cashLeftByDeposit) / wholeNotes * wholeNotes);
    }

    Random m_random;
    int m_today = 0;
    Cents m_cash = 0; ///< Coins and notes; cheques are counted separately.
    std::deque<Cheque> m_cheques;
    std::map<qint32, std::int64_t> m_invoices;
};

} // namespace

std::vector<DemoDay> demoLedger(std::uint64_t seed, int workingDays)
{
    Shop shop(seed);
    std::vector<DemoDay> days;
    std::generate_n(std::back_inserter(days), workingDays, [&shop] { return shop.nextDay(); });
    return days;
}

} // namespace lorvan
