#include "main/proof_mark.h"

#include "look/accessible_role.h"
#include "look/icons.h"
#include "look/themed_label.h"
#include "proof/proof_texts.h"

#include <QHBoxLayout>

namespace lorvan {
namespace {

constexpr int extent = 14;
constexpr int gap = 3;
constexpr qreal smallType = 0.85;

} // namespace

ProofMark::ProofMark(QWidget* parent)
    : QWidget(parent)
    , m_tick(new IconView(QStringLiteral("check"), ColourRole::PageIncome, extent, this))
    , m_warning(new IconView(QStringLiteral("warning"), ColourRole::PageWarning, extent, this))
    , m_time(new ThemedLabel({}, ColourRole::Muted, smallType, QFont::Normal, this))
{
    setObjectName(QStringLiteral("proof"));
    setAccessibleRole(staticMetaObject, QAccessible::StaticText);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(gap);
    row->addStretch(1);
    row->addWidget(m_tick);
    row->addWidget(m_warning);
    row->addWidget(m_time);
    row->addStretch(1);
    showNothing();
}

void ProofMark::showProving(qint64 done, qint64 whole)
{
    m_pace.note(done, whole, std::chrono::steady_clock::now());
    m_tick->hide();
    m_warning->hide();
    m_time->setText(QStringLiteral("%1%").arg(m_pace.percent().value_or(0)));
    tell(provingText(m_pace.advance()));
}

void ProofMark::showProved(const LastProof& proof, QDate today)
{
    m_tick->show();
    m_warning->hide();
    m_time->setText(
        proof.at.toString(proof.at.date() == today ? QStringLiteral("HH:mm") : QStringLiteral("dd-MM-yyyy")));
    tell(provedText(proof));
}

void ProofMark::showFailed(const QString& reason)
{
    m_tick->hide();
    m_warning->show();
    m_time->clear();
    tell(notProvedText(reason));
}

void ProofMark::showNothing()
{
    m_tick->hide();
    m_warning->hide();
    m_time->clear();
    tell({});
}

void ProofMark::setTimeShown(bool isShown)
{
    m_time->setVisible(isShown);
}

void ProofMark::tell(const QString& text)
{
    setToolTip(text.toHtmlEscaped());
    setAccessibleName(text);
}

} // namespace lorvan
