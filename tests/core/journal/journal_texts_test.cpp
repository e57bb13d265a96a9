#include "journal/journal_lines.h"
#include "journal/journal_texts.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace lorvan::test {
namespace {

struct Told {
    const char* action;
    const char* subject;
    std::optional<std::int64_t> code;
    const char* before; ///< Null for none.
    const char* after;
    const char* text; ///< The action in Greek.
    const char* summary;
    const char* lines; ///< "name|before|after", a star behind what differs, one below the other.
};

std::optional<QString> state(const char* json)
{
    return json ? std::optional(QString::fromUtf8(json)) : std::nullopt;
}

QString shown(const std::vector<JournalLine>& lines)
{
    QStringList texts;
    for (const JournalLine& line : lines)
        texts += line.name + u'|' + line.before + u'|' + line.after + (line.differs ? "*" : "");
    return texts.join(u'\n');
}

const Told rows[] = {
    {"insert", "movement/17", 5, nullptr,
        R"({"L_tajeos":0,"aa":17,"ejoda":12346700,"epitagh":-1,"esoda":0,"hmeromhnia":20241123,"kvdikos":5,"perigrafh":"ΔΕΗ"})",
        "Εισαγωγή κίνησης", "Κίνηση 17: Κωδικός 5, Έξοδα 1.234,67, ΔΕΗ, 23-11-2024, Επιταγή ναι",
        "Κωδικός||5\nΈσοδα||0,00\nΈξοδα||1.234,67\nΠεριγραφή||ΔΕΗ\nΗμερομηνία||23-11-2024\nΕπιταγή||ναι\n"
        "Λογαριασμός τάξεως||0,00\nΑριθμός κίνησης||17"},
    {"modify", "movement/17", 5, R"({"ejoda":2146700,"epitagh":0,"perigrafh":"ΔΕΗ"})",
        R"({"ejoda":0,"epitagh":-1,"perigrafh":"ΔΕΗ"})", "Μεταβολή κίνησης",
        "Κίνηση 17 (ΔΕΗ): Έξοδα 214,67 → 0,00, Επιταγή όχι → ναι",
        "Έξοδα|214,67|0,00*\nΠεριγραφή|ΔΕΗ|ΔΕΗ\nΕπιταγή|όχι|ναι*"},
    {"remove", "movement/17", 5, R"({"aa":17,"esoda":10000})", nullptr, "Διαγραφή κίνησης", "Κίνηση 17: Έσοδα 1,00",
        "Έσοδα|1,00|\nΑριθμός κίνησης|17|"},
    {"close", "day/20241123", {}, nullptr, R"({"aa":3,"hmeraklhsimatos":20241123})", "Κλείσιμο ημέρας",
        "Ημέρα 23-11-2024", "Ημέρα που έκλεισε||23-11-2024\nΑριθμός κλεισίματος||3"},
    {"close", "book", {}, nullptr, R"({"days":2,"from":20241101,"to":20241110})", "Κλείσιμο ανοικτών ημερών",
        "Βιβλίο: Από 01-11-2024, Έως 10-11-2024, Ημέρες 2", "Από||01-11-2024\nΈως||10-11-2024\nΗμέρες||2"},
    {"modify", "code/4", 5, R"({"digest":"ab","esodo":false,"moved":3,"omada":"Α","perigrafh":"ΔΕΗ"})",
        R"({"esodo":true,"omada":"Β","perigrafh":"ΔΕΗ"})", "Μεταβολή κωδικού",
        "Κωδικός 5 (ΔΕΗ): Ομάδα Α → Β, Είναι έσοδο όχι → ναι, Κινήσεις που άλλαξαν ομάδα 3",
        "Περιγραφή|ΔΕΗ|ΔΕΗ\nΟμάδα|Α|Β*\nΕίναι έσοδο|όχι|ναι*\nΚινήσεις που άλλαξαν ομάδα|3|\nΑποτύπωμα|ab|"},
    {"found", "user/Μ/2", {}, R"({"r_klhsimo":true,"uname":"Μ/2"})", nullptr, "Βρέθηκε αλλαγή χρήστη",
        "Χρήστης Μ/2: Μ/2, Κλείνει το ταμείο ναι", "Όνομα χρήστη|Μ/2|\nΚλείνει το ταμείο|ναι|"},
    {"opening", "book", {}, R"({"20240101":10000})", R"({"20240101":10000,"20240201":-5})", "Υπόλοιπο ανοίγματος",
        "Βιβλίο: Διαφορά ανοίγματος της 01-02-2024 – → -0,0005",
        "Διαφορά ανοίγματος της 01-01-2024|1,00|1,00\nΔιαφορά ανοίγματος της 01-02-2024||-0,0005*"},
    {"clear", "book", {}, R"({"kinhseis":12,"omades":0})", nullptr, "Διαγραφή όλων των στοιχείων",
        "Βιβλίο: Κινήσεις 12", "Κινήσεις|12|\nΟμάδες|0|"},
    {"clear", "book", {}, R"({"kinhseis":12})", R"({"seal":"ab"})", "Διαγραφή όλων των στοιχείων",
        "Βιβλίο: Κινήσεις 12 → –", "Κινήσεις|12|*\nΤελευταία σφραγίδα||ab"},
    {"restore", "book", {}, nullptr, R"({"codes":["K7QF-2M9T-XD","A"],"copy":"a.tar","journal":"ff"})",
        "Επαναφορά αντιγράφου", "Βιβλίο: a.tar, Κωδικοί ελέγχου νεότεροι από το αντίγραφο K7QF-2M9T-XD, A",
        "Αντίγραφο||a.tar\nΚωδικοί ελέγχου νεότεροι από το αντίγραφο||K7QF-2M9T-XD, A\nΤέλος του ιστορικού πριν||ff"},
    {"seal", "book", {}, nullptr, R"({"days":2})", "Σφράγιση κλεισμένων ημερών", "Βιβλίο: Ημέρες 2", "Ημέρες||2"},
    // of a newer version, or spoilt
    {"stamp", "movement/1", {}, nullptr, R"({"new":[1,2],"newer":{"a":null},"perigrafh":7})", "stamp",
        "Κίνηση 1: 7, new [1,2], newer {\"a\":null}", "Περιγραφή||7\nnew||[1,2]\nnewer||{\"a\":null}"},
    {"insert", "drawer/3", {}, nullptr, R"({"esoda":5})", "Εισαγωγή drawer/3", "drawer/3: esoda 5", "esoda||5"},
    {"modify", "day/99", {}, "{}", R"({"esoda":"x","hmeraklhsimatos":20249999,"ypoloipo":1.5})",
        "Μεταβολή ημέρας ταμείου", "Ημέρα 99: Έσοδα x, Υπόλοιπο 1.5",
        "Ημέρα που έκλεισε||20249999\nΈσοδα||x\nΥπόλοιπο||1.5"},
    {"modify", "group/2", {}, "{broken", "{}", "Μεταβολή ομάδας", "Ομάδα 2: Όπως είναι γραμμένο {broken → {}",
        "Όπως είναι γραμμένο|{broken|{}*"},
};

TEST(JournalTextsTest, sayWhatWasDoneAndWhatDiffers)
{
    for (const Told& told : rows) {
        JournalRow row;
        row.action = told.action;
        row.subject = QString::fromUtf8(told.subject);
        row.code = told.code;
        row.before = state(told.before);
        row.after = state(told.after);
        EXPECT_EQ(journalActionText(row), told.text);
        EXPECT_EQ(journalSummary(row), told.summary);
        EXPECT_EQ(shown(journalLines(row)), told.lines) << told.summary;
    }
}

} // namespace
} // namespace lorvan::test
