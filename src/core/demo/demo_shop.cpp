#include "demo/demo_shop.h"

namespace lorvan {
namespace {

enum Group { Sales = 1, Customers, OtherIncome, Suppliers, Staff, Running, Bank, Taxes };

MovementCode income(qint32 number, const QString& name, Group group)
{
    return {number, name, codeListLine(QString::number(number), name), group, true, true};
}

MovementCode expense(qint32 number, const QString& name, Group group)
{
    return {number, name, codeListLine(QString::number(number), name), group, false, true};
}

MovementCode retired(MovementCode code)
{
    code.active = false;
    return code;
}

} // namespace

const std::vector<QString>& demoGroups()
{
    static const std::vector<QString> groups{
        QStringLiteral("ΠΩΛΗΣΕΙΣ"),
        QStringLiteral("ΠΕΛΑΤΕΣ"),
        QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"),
        QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ"),
        QStringLiteral("ΠΡΟΣΩΠΙΚΟ"),
        QStringLiteral("ΛΕΙΤΟΥΡΓΙΚΑ ΕΞΟΔΑ"),
        QStringLiteral("ΤΡΑΠΕΖΕΣ"),
        QStringLiteral("ΦΟΡΟΙ - ΤΕΛΗ"),
    };
    return groups;
}

const std::vector<MovementCode>& demoCodes()
{
    static const std::vector<MovementCode> codes{
        income(100, QStringLiteral("ΠΩΛΗΣΕΙΣ ΛΙΑΝΙΚΗΣ"), Sales),
        income(101, QStringLiteral("ΠΩΛΗΣΕΙΣ ΧΟΝΔΡΙΚΗΣ"), Sales),
        income(102, QStringLiteral("ΠΩΛΗΣΕΙΣ ΧΡΩΜΑΤΩΝ"), Sales),
        income(103, QStringLiteral("ΚΟΠΗ ΚΛΕΙΔΙΩΝ"), Sales),
        income(104, QStringLiteral("ΕΝΟΙΚΙΑΣΗ ΕΡΓΑΛΕΙΩΝ"), Sales),
        income(110, QStringLiteral("ΕΙΣΠΡΑΞΗ ΑΠΟ ΠΕΛΑΤΗ"), Customers),
        income(111, QStringLiteral("ΕΠΙΤΑΓΗ ΠΕΛΑΤΗ"), Customers),
        income(112, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ ΠΕΛΑΤΗ"), Customers),
        expense(113, QStringLiteral("ΕΠΙΣΤΡΟΦΗ ΧΡΗΜΑΤΩΝ ΣΕ ΠΕΛΑΤΗ"), Customers),
        income(120, QStringLiteral("ΛΟΙΠΑ ΕΣΟΔΑ"), OtherIncome),
        income(121, QStringLiteral("ΜΕΤΑΦΟΡΙΚΑ ΠΕΛΑΤΩΝ"), OtherIncome),
        income(122, QStringLiteral("ΕΚΠΤΩΣΕΙΣ ΑΓΟΡΩΝ"), OtherIncome),
        income(123, QStringLiteral("ΜΕΤΡΗΤΑ ΕΝΑΡΞΗΣ"), OtherIncome),
        income(130, QStringLiteral("ΑΝΑΛΗΨΗ ΑΠΟ ΤΡΑΠΕΖΑ"), Bank),
        expense(200, QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ ΕΡΓΑΛΕΙΩΝ"), Suppliers),
        expense(201, QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ ΧΡΩΜΑΤΩΝ"), Suppliers),
        expense(202, QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ ΣΙΔΗΡΙΚΩΝ"), Suppliers),
        expense(203, QStringLiteral("ΠΡΟΜΗΘΕΥΤΕΣ ΥΔΡΑΥΛΙΚΩΝ"), Suppliers),
        expense(204, QStringLiteral("ΠΛΗΡΩΜΗ ΜΕ ΕΠΙΤΑΓΗ ΠΕΛΑΤΗ"), Suppliers),
        expense(205, QStringLiteral("ΜΕΤΑΦΟΡΙΚΑ ΑΓΟΡΩΝ"), Suppliers),
        expense(210, QStringLiteral("ΜΙΣΘΟΔΟΣΙΑ"), Staff),
        expense(211, QStringLiteral("ΠΡΟΚΑΤΑΒΟΛΗ ΜΙΣΘΟΥ"), Staff),
        expense(212, QStringLiteral("ΥΠΕΡΩΡΙΕΣ"), Staff),
        expense(213, QStringLiteral("ΕΙΣΦΟΡΕΣ ΕΦΚΑ"), Staff),
        expense(220, QStringLiteral("ΕΝΟΙΚΙΟ"), Running),
        expense(221, QStringLiteral("ΗΛΕΚΤΡΙΚΟ ΡΕΥΜΑ"), Running),
        expense(222, QStringLiteral("ΥΔΡΕΥΣΗ"), Running),
        expense(223, QStringLiteral("ΤΗΛΕΦΩΝΑ"), Running),
        expense(224, QStringLiteral("ΓΡΑΦΙΚΗ ΥΛΗ"), Running),
        expense(225, QStringLiteral("ΚΑΘΑΡΙΟΤΗΤΑ"), Running),
        expense(226, QStringLiteral("ΕΠΙΣΚΕΥΕΣ - ΣΥΝΤΗΡΗΣΗ"), Running),
        expense(227, QStringLiteral("ΚΑΥΣΙΜΑ"), Running),
        expense(228, QStringLiteral("ΔΙΑΦΗΜΙΣΗ"), Running),
        expense(229, QStringLiteral("ΜΙΚΡΟΕΞΟΔΑ"), Running),
        expense(230, QStringLiteral("ΤΑΧΥΔΡΟΜΙΚΑ"), Running),
        retired(expense(231, QStringLiteral("ΤΗΛΕΟΜΟΙΟΤΥΠΟ"), Running)),
        expense(300, QStringLiteral("ΚΑΤΑΘΕΣΗ ΣΕ ΤΡΑΠΕΖΑ"), Bank),
        expense(301, QStringLiteral("ΚΑΤΑΘΕΣΗ ΕΠΙΤΑΓΗΣ"), Bank),
        expense(302, QStringLiteral("ΠΡΟΜΗΘΕΙΕΣ ΤΡΑΠΕΖΩΝ"), Bank),
        expense(310, QStringLiteral("Φ.Π.Α."), Taxes),
        expense(311, QStringLiteral("ΦΟΡΟΣ ΜΙΣΘΩΤΩΝ"), Taxes),
        expense(312, QStringLiteral("ΔΗΜΟΤΙΚΑ ΤΕΛΗ"), Taxes),
    };
    return codes;
}

const std::vector<DemoUser>& demoUsers()
{
    static const std::vector<DemoUser> users{
        {QStringLiteral("ΜΑΡΙΑ"), QStringLiteral("2580"), {true, true, true}},
        {QStringLiteral("ΓΙΩΡΓΟΣ"), QStringLiteral("1470"), {}},
    };
    return users;
}

} // namespace lorvan
