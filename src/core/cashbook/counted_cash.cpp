#include "cashbook/counted_cash.h"

#include "cashbook/day_seal.h"
#include "journal/journal.h"
#include "platform/amount_text.h"
#include "platform/engine/connection.h"
#include "platform/engine/transaction.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace lorvan {
namespace {

QString nameOf(std::size_t kind)
{
    return QString::number(CountedCash::worths.at(kind));
}

} // namespace

std::optional<CountedCash> CountedCash::fromJson(const QString& json)
{
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8());
    if (!document.isObject())
        return std::nullopt;
    CountedCash counted;
    for (std::size_t kind = 0; kind < worths.size(); ++kind) {
        const std::int64_t count = document.object()[nameOf(kind)].toInteger();
        if (count < 0 || count > most)
            return std::nullopt;
        counted.setCount(kind, count);
    }
    return counted;
}

QString CountedCash::toJson() const
{
    return QString::fromUtf8(QJsonDocument(state()).toJson(QJsonDocument::Compact));
}

QJsonObject CountedCash::state() const
{
    QJsonObject object;
    for (std::size_t kind = 0; kind < worths.size(); ++kind) {
        if (m_counts.at(kind) != 0)
            object[nameOf(kind)] = qint64(m_counts.at(kind));
    }
    return object;
}

QString CountedCash::worthText(std::size_t kind)
{
    constexpr std::int64_t centsOfEuro = 100;
    const std::int64_t cents = worths.at(kind);
    return cents < centsOfEuro ? amountText(Currency::fromTenThousandths(cents * Currency::unitsPerCent))
                               : QString::number(cents / centsOfEuro);
}

Currency CountedCash::amount(std::size_t kind) const
{
    return Currency::fromTenThousandths(m_counts.at(kind) * worths.at(kind) * Currency::unitsPerCent);
}

Currency CountedCash::sum() const
{
    Currency sum;
    for (std::size_t kind = 0; kind < worths.size(); ++kind)
        sum += amount(kind);
    return sum;
}

bool keepCountedCash(Connection& book, const Authority& authority, QDate day, const CountedCash& counted)
{
    authority.require(Right::CloseCash);
    Transaction writing(book, authority);
    const auto seal = lastSealOf(book, day);
    if (!seal)
        return false;
    const auto before = countedCashOf(book, day);
    if (before == counted)
        return true;
    recordChange(book, authority,
        {JournalAction::Count, journal_subject::day(day), day, {}, before ? before->state() : QJsonObject(),
            counted.state()});
    book.prepare("UPDATE seals SET counted=? WHERE id=?").bind(counted.toJson(), seal->id).run();
    writing.commit();
    return true;
}

std::optional<CountedCash> countedCashOf(Connection& auxiliary, QDate day)
{
    if (!keepsSeals(auxiliary))
        return std::nullopt;
    auto row =
        auxiliary.prepare("SELECT counted FROM seals WHERE day=? AND counted IS NOT NULL ORDER BY id DESC LIMIT 1");
    row.bind(day);
    return row.step() ? CountedCash::fromJson(row.text(0)) : std::nullopt;
}

} // namespace lorvan
