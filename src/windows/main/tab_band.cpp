#include "main/tab_band.h"

#include "controls/band_tabs.h"
#include "controls/label3d.h"
#include "look/theme.h"
#include "main/proof_mark.h"
#include "main/tools_button.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int tabsLeft = 8;
constexpr int sideMargin = 12;
constexpr int gapAroundTools = 8;
constexpr int leastGapAroundTools = 2;
constexpr int leastToolsWidth = 20; // of the button with its icon alone
constexpr int leastLabelWidth = 96;
constexpr int spaceAboveTabs = 6;
constexpr qreal headingFactor = 1.15;
constexpr qreal versionFactor = 0.85;

Label3D* bandLabel(int index, QWidget* parent)
{
    auto* const label = new Label3D(parent);
    label->setObjectName(QStringLiteral("Label3D1(%1)").arg(index));
    label->setBackColor(Qt::transparent);
    label->setAlignment(Label3D::TextAlignment::Right);
    label->setElided(true);
    label->setCaption({});
    return label;
}

} // namespace

TabBand::TabBand(QWidget* parent)
    : QFrame(parent)
    , m_tabs(new BandTabs(this))
    , m_tools(new ToolsButton(this))
    , m_proof(new ProofMark(this))
    , m_heading(bandLabel(1, this))
    , m_version(bandLabel(0, this))
{
    m_tabs->setObjectName(QStringLiteral("Tab1"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&Theme::instance(), &Theme::changed, this, &TabBand::dress);
    dress();
}

int TabBand::addTab(const QString& iconName, const QString& caption, const QString& toolTip)
{
    const int index = m_tabs->addTab(caption);
    m_tabs->setTabData(index, iconName);
    m_tabs->setTabToolTip(index, toolTip);
    updateGeometry();
    layOut();
    return index;
}

void TabBand::setHeading(const QString& text)
{
    m_heading->setCaption(text);
    layOut();
}

void TabBand::setVersion(const QString& text)
{
    m_version->setCaption(text);
    layOut();
}

void TabBand::dress()
{
    const Theme& theme = Theme::instance();
    const QColor behind = theme.isDark() ? Qt::black : Qt::white;
    m_heading->setFont(theme.font(headingFactor, QFont::Bold));
    m_heading->setForeColor2(theme.colour(ColourRole::PageText));
    m_heading->setForeColor1(behind);
    m_version->setFont(theme.font(versionFactor));
    m_version->setForeColor2(theme.colour(ColourRole::PageMuted));
    m_version->setForeColor1(behind);
    updateGeometry();
    layOut();
    update();
}

QSize TabBand::sizeHint() const
{
    const int labels = std::max(m_heading->sizeHint().width(), m_version->sizeHint().width());
    const QSize tabs = m_tabs->sizeHint();
    const int labelHeight = m_heading->sizeHint().height() + m_version->sizeHint().height();
    const int toolsHeight = m_tools->sizeHint().height() + m_proof->sizeHint().height();
    return {tabsLeft + tabs.width() + m_tools->sizeHint().width() + 2 * gapAroundTools + labels + sideMargin,
        std::max({tabs.height() + spaceAboveTabs, labelHeight + spaceAboveTabs, toolsHeight})};
}

QSize TabBand::minimumSizeHint() const
{
    return {tabsLeft + m_tabs->sizeHint().width() + leastToolsWidth + 2 * leastGapAroundTools + leastLabelWidth
            + sideMargin,
        sizeHint().height()};
}

void TabBand::layOut()
{
    const QSize tabs = m_tabs->sizeHint();
    m_tabs->setGeometry(tabsLeft, height() - tabs.height(), tabs.width(), tabs.height());
    const int room = width() - m_tabs->geometry().right() - 1 - sideMargin;
    const int labels = std::max(m_heading->sizeHint().width(), m_version->sizeHint().width());
    m_tools->captionLabel()->show();
    const int wide = m_tools->sizeHint().width();
    const bool isWide = wide + 2 * gapAroundTools + labels <= room;
    const int gap = isWide ? gapAroundTools : leastGapAroundTools;
    const int least = std::clamp(room - labels - 2 * gap, leastToolsWidth, m_tools->sizeHint().height());
    const int toolsWidth = isWide ? wide : least;
    const int available = room - toolsWidth - 2 * gap;
    placeTools(
        {width() - sideMargin - std::min(labels, available) - gap - toolsWidth, 0, toolsWidth, height()}, isWide);
    const int together = m_heading->sizeHint().height() + m_version->sizeHint().height();
    const int top = (height() - together) / 2;
    placeLabel(*m_heading, top, available);
    placeLabel(*m_version, top + m_heading->sizeHint().height(), available);
}

/// The button above the mark, both together in the middle of the height.
void TabBand::placeTools(const QRect& place, bool isWide)
{
    m_tools->captionLabel()->setVisible(isWide);
    m_proof->setTimeShown(isWide);
    const int button = m_tools->sizeHint().height();
    const int mark = m_proof->sizeHint().height();
    const int top = (place.height() - button - mark) / 2;
    m_tools->setGeometry(place.left(), top, place.width(), button);
    m_proof->setGeometry(place.left(), top + button, place.width(), mark);
}

void TabBand::placeLabel(Label3D& label, int top, int available)
{
    const QSize wanted = label.sizeHint();
    const int labelWidth = std::min(wanted.width(), available);
    label.setGeometry(width() - sideMargin - labelWidth, top, labelWidth, wanted.height());
    label.setToolTip(labelWidth < wanted.width() ? label.caption().toHtmlEscaped() : QString());
}

void TabBand::resizeEvent(QResizeEvent* event)
{
    QFrame::resizeEvent(event);
    layOut();
}

void TabBand::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    painter.fillRect(rect(), theme.colour(ColourRole::Band));
    painter.fillRect(0, height() - 1, width(), 1, theme.colour(ColourRole::PageLine));
}

} // namespace lorvan
