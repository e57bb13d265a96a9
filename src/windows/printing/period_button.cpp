#include "printing/period_button.h"

#include <QMenu>

namespace lorvan {

PeriodButton::PeriodButton(Clock clock, QWidget* parent)
    : CommandButton(QStringLiteral("calendar"), {}, parent)
    , m_clock(std::move(clock))
{
    setObjectName(QStringLiteral("periods"));
    setAccessibleName(QStringLiteral("Επιλογή περιόδου"));
    setToolTip(QStringLiteral("Επιλογή περιόδου: σήμερα, μήνας, τρίμηνο, έτος"));
    setFrameless(true);
    connect(this, &CommandButton::clicked, this, &PeriodButton::offer);
}

void PeriodButton::offer()
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const NamedPeriod& period : usualPeriods(m_clock.today()))
        connect(menu->addAction(period.name), &QAction::triggered, this, [this, period] { Q_EMIT chosen(period); });
    menu->setActiveAction(menu->actions().constFirst());
    menu->popup(mapToGlobal(QPoint(0, height())));
}

} // namespace lorvan
