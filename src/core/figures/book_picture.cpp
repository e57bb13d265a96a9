#include "figures/book_picture.h"

#include "codes/code_catalogue.h"
#include "platform/amount_text.h"
#include "platform/date_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"
#include "reports/code_sums.h"

#include <algorithm>
#include <map>

namespace lorvan {
namespace {

constexpr std::size_t codesShown = 20;

const QString income = QStringLiteral("Έσοδα");
const QString expense = QStringLiteral("Έξοδα");
const QString balance = QStringLiteral("Υπόλοιπο");

/// What the codes of a group, or a single code, come to.
struct Share {
    QString name;
    Currency income;
    Currency expense;
    qint32 code = 0;
};

QString balanceText(const std::optional<Currency>& amount)
{
    return amount ? amountText(*amount) : QString();
}

QString withYear(const QString& name, const FigureSpan& span)
{
    const bool isMonth = span.step == FigureStep::Day;
    return name + u' ' + (isMonth ? span.from.toString(QStringLiteral("M/yyyy")) : spanText(span));
}

void addSeries(Chart& chart, const std::vector<CashFigure>& figures, const FigureSpan& span, bool isEarlier)
{
    const std::size_t places = static_cast<std::size_t>(chart.places.size());
    ChartSeries balances{isEarlier ? withYear(balance, span) : balance, ChartRole::Balance, {}, isEarlier};
    ChartSeries incomes{isEarlier ? withYear(income, span) : income, ChartRole::Income, {}, isEarlier};
    ChartSeries expenses{isEarlier ? withYear(expense, span) : expense, ChartRole::Expense, {}, isEarlier};
    for (std::size_t place = 0; place < places; ++place) {
        const CashFigure figure = place < figures.size() ? figures[place] : CashFigure();
        balances.values.push_back(figure.balance);
        incomes.values.emplace_back(figure.income);
        expenses.values.emplace_back(figure.expense);
    }
    chart.panels[0].series.push_back(std::move(balances));
    chart.panels[1].series.push_back(std::move(incomes));
    chart.panels[1].series.push_back(std::move(expenses));
}

QString cashTitle(const PictureRequest& request)
{
    switch (request.span.step) {
    case FigureStep::Day:
        return QStringLiteral("Ταμείο ανά ημέρα, ") + spanText(request.span);
    case FigureStep::Week:
        return QStringLiteral("Ταμείο ανά εβδομάδα, ") + spanText(request.span);
    case FigureStep::Month:
        return QStringLiteral("Ταμείο ανά μήνα, ") + spanText(request.span);
    case FigureStep::Year:
        break;
    }
    return QStringLiteral("Ταμείο ανά έτος, ") + spanText(request.span);
}

/// A step of the year before that this year lacks (a 53rd week, the 29th of a February) is left out.
void addEarlier(Connection& main, const PictureRequest& request, BookPicture& picture)
{
    const FigureSpan before = yearBefore(request.span);
    const std::vector<CashFigure> figures = readCashFigures(main, before);
    addSeries(picture.chart, figures, before, true);
    picture.columns += {withYear(income, before), withYear(expense, before), withYear(balance, before)};
    Currency incomes;
    Currency expenses;
    for (std::size_t row = 0; row < picture.rows.size(); ++row) {
        const CashFigure figure = row < figures.size() ? figures[row] : CashFigure();
        picture.rows[row] += {amountText(figure.income), amountText(figure.expense), balanceText(figure.balance)};
        incomes += figure.income;
        expenses += figure.expense;
    }
    picture.sums += {amountText(incomes), amountText(expenses), QString()};
}

BookPicture cashPicture(Connection& main, const PictureRequest& request)
{
    BookPicture picture{cashTitle(request), {}, {}, {QStringLiteral("Περίοδος"), income, expense, balance}, {},
        {QStringLiteral("Σύνολα")}, {}, {}};
    picture.chart.panels = {{ChartPanel::Kind::Lines, {}}, {ChartPanel::Kind::Bars, {}}};
    Currency incomes;
    Currency expenses;
    const std::vector<CashFigure> figures = readCashFigures(main, request.span);
    for (const CashFigure& figure : figures) {
        picture.chart.places.append(shortStepText(figure, request.span.step));
        picture.days.push_back(figure.from);
        if (request.span.step == FigureStep::Day)
            picture.subjects.push_back({RowSubject::Kind::Day, storedDate(figure.from)});
        picture.rows.push_back({stepText(figure, request.span.step), amountText(figure.income),
            amountText(figure.expense), balanceText(figure.balance)});
        incomes += figure.income;
        expenses += figure.expense;
    }
    picture.sums += {amountText(incomes), amountText(expenses), QString()};
    addSeries(picture.chart, figures, request.span, false);
    if (request.comparesYears && request.span.step != FigureStep::Year)
        addEarlier(main, request, picture);
    return picture;
}

/// The codes that are in no group stand together.
std::vector<Share> groupShares(Connection& main, const FigureSpan& span)
{
    std::map<qint32, qint32> groupOf;
    for (const MovementCode& code : listCodes(main, CodeSelection::All))
        groupOf.emplace(code.code, code.group);
    std::map<qint32, Share> shares;
    for (const CodeGroup& group : listGroups(main))
        shares[group.number].name = group.name.trimmed();
    for (const auto& [code, sums] : sumsByCode(main, span.from, span.to, {})) {
        const auto group = groupOf.find(code);
        Share& share = shares[group == groupOf.end() ? 0 : group->second];
        share.income += sums.income;
        share.expense += sums.expense;
    }
    std::vector<Share> list;
    for (auto& [number, share] : shares) {
        if (share.name.isEmpty())
            share.name = QStringLiteral("Χωρίς ομάδα");
        if (!share.income.isZero() || !share.expense.isZero())
            list.push_back(std::move(share));
    }
    return list;
}

std::vector<Share> codeShares(Connection& main, const FigureSpan& span)
{
    std::map<qint32, QString> names;
    for (const MovementCode& code : listCodes(main, CodeSelection::All))
        names.emplace(code.code, code.description.trimmed());
    std::vector<Share> list;
    for (const auto& [code, sums] : sumsByCode(main, span.from, span.to, {}))
        list.push_back({QString::number(code) + u' ' + names[code], sums.income, sums.expense, code});
    return list;
}

Currency magnitude(Currency amount)
{
    return amount < Currency() ? -amount : amount;
}

Currency magnitude(const Share& share)
{
    return std::max(magnitude(share.income), magnitude(share.expense));
}

void sortByMagnitude(std::vector<Share>& shares)
{
    std::sort(shares.begin(), shares.end(), [](const Share& left, const Share& right) {
        return magnitude(left) != magnitude(right) ? magnitude(right) < magnitude(left)
            : left.code != right.code              ? left.code < right.code
                                                   : left.name < right.name;
    });
}

void show(const std::vector<Share>& shares, BookPicture& picture)
{
    ChartSeries incomes{income, ChartRole::Income, {}, false};
    ChartSeries expenses{expense, ChartRole::Expense, {}, false};
    Currency incomeSum;
    Currency expenseSum;
    for (const Share& share : shares) {
        picture.chart.places.append(share.name);
        picture.rows.push_back({share.name, amountText(share.income), amountText(share.expense)});
        incomes.values.emplace_back(share.income);
        expenses.values.emplace_back(share.expense);
        incomeSum += share.income;
        expenseSum += share.expense;
    }
    picture.sums = {QStringLiteral("Σύνολα"), amountText(incomeSum), amountText(expenseSum)};
    picture.chart.form = Chart::Form::Lying;
    picture.chart.panels = {{ChartPanel::Kind::Bars, {std::move(incomes), std::move(expenses)}}};
}

QString daysText(const FigureSpan& span)
{
    const QString form = QStringLiteral("d-M-yyyy");
    return QStringLiteral("%1 έως %2").arg(span.from.toString(form), span.to.toString(form));
}

BookPicture groupPicture(Connection& main, const FigureSpan& span)
{
    BookPicture picture{QStringLiteral("Ομάδες, ") + daysText(span),
        QStringLiteral("Κάθε κίνηση μετρά στην ομάδα που έχει σήμερα ο κωδικός της."), {},
        {QStringLiteral("Ομάδα"), income, expense}, {}, {}, {}, {}};
    std::vector<Share> shares = groupShares(main, span);
    sortByMagnitude(shares);
    show(shares, picture);
    return picture;
}

BookPicture codePicture(Connection& main, const FigureSpan& span)
{
    BookPicture picture{QStringLiteral("Οι μεγαλύτεροι κωδικοί, ") + daysText(span), {}, {},
        {QStringLiteral("Κωδικός"), income, expense}, {}, {}, {}, {}};
    std::vector<Share> shares = codeShares(main, span);
    sortByMagnitude(shares);
    if (shares.size() > codesShown) {
        picture.remark = QStringLiteral("Οι %1 μεγαλύτεροι από %2.").arg(codesShown).arg(shares.size());
        shares.resize(codesShown);
    }
    show(shares, picture);
    for (const Share& share : shares)
        picture.subjects.push_back({RowSubject::Kind::Code, share.code});
    return picture;
}

} // namespace

BookPicture readBookPicture(Connection& main, const PictureRequest& request)
{
    const Transaction reading(main, Transaction::View::Steady);
    switch (request.subject) {
    case PictureSubject::Groups:
        return groupPicture(main, request.span);
    case PictureSubject::Codes:
        return codePicture(main, request.span);
    case PictureSubject::Cash:
        break;
    }
    return cashPicture(main, request);
}

} // namespace lorvan
