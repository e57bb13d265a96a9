#include "preview/preview_actions.h"

namespace lorvan {
namespace {

QAction* addAction(QWidget* window, const char* name, const QString& text, const QList<QKeySequence>& keys = {})
{
    auto* const action = new QAction(text, window);
    action->setObjectName(QString::fromLatin1(name));
    action->setShortcuts(keys);
    if (!keys.isEmpty())
        action->setToolTip(text + QStringLiteral(" (%1)").arg(keys.constFirst().toString(QKeySequence::NativeText)));
    window->addAction(action);
    return action;
}

/// Keys that the page view handles itself are only mentioned, not bound.
QAction* addTurning(QWidget* window, const char* name, const QString& text, const QString& key)
{
    QAction* const action = addAction(window, name, text);
    action->setToolTip(text + QStringLiteral(" (%1)").arg(key));
    return action;
}

} // namespace

PreviewActions::PreviewActions(QWidget* window)
    : choosePrinter(addAction(window, "menu(1)", QStringLiteral("Επιλογή εκτυπωτή")))
    , printPage(addAction(window, "menu(15)", QStringLiteral("Εκτύπωση τρέχουσας")))
    , print(addAction(window, "menu(20)", QStringLiteral("Εκτύπωση"), {Qt::CTRL | Qt::Key_P}))
    , back(addAction(window, "menu(30)", QStringLiteral("Επιστροφή"), {Qt::CTRL | Qt::Key_E}))
    , firstPage(addTurning(window, "firstPage", QStringLiteral("Πρώτη σελίδα"), QStringLiteral("Home")))
    , previousPage(addTurning(window, "previousPage", QStringLiteral("Προηγούμενη σελίδα"), QStringLiteral("Page Up")))
    , nextPage(addTurning(window, "nextPage", QStringLiteral("Επόμενη σελίδα"), QStringLiteral("Page Down")))
    , lastPage(addTurning(window, "lastPage", QStringLiteral("Τελευταία σελίδα"), QStringLiteral("End")))
    , zoomOut(addAction(window, "zoomOut", QStringLiteral("Σμίκρυνση"), {Qt::CTRL | Qt::Key_Minus}))
    , zoomIn(
          addAction(window, "zoomIn", QStringLiteral("Μεγέθυνση"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal}))
    , zoomNormal(addAction(window, "zoomNormal", QStringLiteral("Φυσικό μέγεθος"), {Qt::CTRL | Qt::Key_0}))
    , fitWidth(addAction(window, "fitWidth", QStringLiteral("Στο πλάτος της σελίδας")))
    , fitPage(addAction(window, "fitPage", QStringLiteral("Ολόκληρη η σελίδα")))
    , savePdf(addAction(window, "savePdf", QStringLiteral("Αποθήκευση ως PDF"), {Qt::CTRL | Qt::Key_S}))
    , saveTable(addAction(
          window, "saveTable", QStringLiteral("Αποθήκευση ως πίνακας, XLSX ή CSV"), {Qt::CTRL | Qt::SHIFT | Qt::Key_S}))
    , carrySums(addAction(window, "carrySums",
          QStringLiteral("Μεταφορές: τα αθροίσματα στο τέλος και στην αρχή κάθε σελίδας"), {Qt::CTRL | Qt::Key_M}))
    , goToSearch(addAction(window, "goToSearch", QStringLiteral("Εύρεση"), {Qt::CTRL | Qt::Key_F}))
    , findNext(addAction(window, "findNext", QStringLiteral("Εύρεση επόμενου"), {Qt::Key_F3}))
    , findPrevious(addAction(window, "findPrevious", QStringLiteral("Εύρεση προηγούμενου"), {Qt::SHIFT | Qt::Key_F3}))
{
    carrySums->setCheckable(true);
}

} // namespace lorvan
