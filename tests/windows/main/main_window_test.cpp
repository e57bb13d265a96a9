#include "windows/main_window_test.h"
#include "book/book_opening.h"
#include "cashbook/opening_balance.h"

#include <QFile>
#include <QTabBar>
#include <QTest>

namespace lorvan::test {

const QDate MainWindowTest::today(2024, 3, 15);
const QDate MainWindowTest::tomorrow(2024, 3, 16);
const QDate MainWindowTest::yesterday(2024, 3, 14);

ExpectedBox dayIsClosed()
{
    return stop(
        QStringLiteral("Προσοχή"), QStringLiteral("Το ταμείο έχει κλείσει και δεν έχετε δικαίωμα να το μεταβάλετε"));
}

ExpectedBox modifyQuestion(QMessageBox::StandardButton answer)
{
    return okCancel(QMessageBox::Question, QStringLiteral("Μεταβολή στοιχείων"),
        QStringLiteral("Να γίνει η μεταβολή των στοιχείων;"), answer);
}

MachineIdentity otherUser()
{
    return {QStringLiteral("Ελένη"), QStringLiteral("γραφείο")};
}

void MainWindowTest::start(Rights rights, const Clock& clock)
{
    if (m_window)
        m_window->end();
    UsageMarker marker(book.files().usageMarker(), {QStringLiteral("Μαρία"), QStringLiteral("ταμείο")});
    DataFolderSettings settings;
    settings.dataFolder = book.folder();
    Book opened = openBook(
        book.files(), testKeys(), marker, [] { return OpeningBalance{}; }, openingSteps());
    m_window = std::make_unique<Kentrikh>(std::move(opened), std::move(marker), rights, settings, clock, testKeys());
    m_user.emplace(*m_window);
    m_window->initialise();
    m_window->show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
}

QString MainWindowTest::state() const
{
    return user().find(QStringLiteral("Label3D1(3)")).property("caption").toString();
}

QString MainWindowTest::shownFigures() const
{
    const QString separator = QStringLiteral(" | ");
    return user().text(QStringLiteral("Bar1(2)")) + separator + user().text(QStringLiteral("Bar1(4)")) + separator
        + user().text(QStringLiteral("Bar1(6)"));
}

QString MainWindowTest::movementLine(int number) const
{
    return linesOf(list()).section(u'\n', number, number);
}

void MainWindowTest::selectTab(int tab) const
{
    auto& tabs = user().find<QTabBar>(QStringLiteral("Tab1"));
    QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {}, tabs.mapTo(&window(), tabs.tabRect(tab).center()));
}

void MainWindowTest::chooseCode(const QString& number) const
{
    user().goTo(chooser());
    user().type(number);
    user().press(Qt::Key_Return);
}

void MainWindowTest::typeMovement(const QString& code, const QString& words, const QString& amount) const
{
    chooseCode(code);
    user().type(words);
    user().press(Qt::Key_Return);
    user().type(amount);
    user().press(Qt::Key_Return);
}

QString MainWindowTest::entry() const
{
    QStringList texts;
    for (const int index : {income, expense, memorandum, description})
        texts += user().field(index).text();
    return texts.join(QStringLiteral(" | ")) + QStringLiteral(" | ") + chooser().currentText();
}

void MainWindowTest::addCashDay(QDate day, Currency balance) const
{
    Connection main = book.openMain();
    main.prepare("INSERT INTO tameio (hmeromhnia, esoda, ejoda, ypoloipo) VALUES (?,0,0,?)").bind(day, balance).run();
}

CashDayLines MainWindowTest::cashDays() const
{
    Connection main = book.openMain();
    return storedCashDays(main);
}

QString MainWindowTest::stored(std::string_view sql) const
{
    Connection main = book.openMain();
    return valueOf(main, sql);
}

QByteArray MainWindowTest::markerBytes() const
{
    QFile file(book.files().usageMarker());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

UsageMarker MainWindowTest::otherComputer() const
{
    return {book.files().usageMarker(), otherUser()};
}

} // namespace lorvan::test
