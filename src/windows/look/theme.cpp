#include "look/theme.h"

#include "look/colours.h"
#include "look/greek_texts.h"
#include "look/style.h"

#include <QApplication>
#include <QEvent>
#include <QFontMetricsF>
#include <QPointer>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>

/// The icons are in a static library, whose resources the linker leaves out unless they are requested by name; this can
/// only be done outside a namespace.
static void initializeIcons()
{
    Q_INIT_RESOURCE(lorvan);
}

namespace lorvan {
namespace {

QPointer<Theme> installedTheme;

constexpr int darkBelow = 128;
constexpr qreal readable = 4.5; // contrast of text that is meant to be read
constexpr qreal highest = 20; // and of a desktop that is made for those who need the most; black on white has 21

bool isGround(ColourRole role)
{
    return role == ColourRole::Page || role == ColourRole::Band;
}

bool isPageRole(ColourRole role)
{
    return role >= ColourRole::PageText;
}

bool isToBeRead(ColourRole role)
{
    return role == ColourRole::PageMuted || role == ColourRole::PageWarning || role == ColourRole::PageIncome
        || role == ColourRole::PageExpense;
}

/// Grounds that differ little from one another, and what is written or drawn on them more faintly than text.
bool isShade(ColourRole role)
{
    using enum ColourRole;
    const auto all = {Band, Page, Base, Alternate, Button, BalanceRow, OffField};
    return std::find(all.begin(), all.end(), role) != all.end();
}

bool isFaint(ColourRole role)
{
    using enum ColourRole;
    const auto all = {Muted, Line, Edge, PageMuted, PageLine};
    return std::find(all.begin(), all.end(), role) != all.end();
}

bool hasEqualDigits(const QFont& font)
{
    const QFontMetricsF metrics(font);
    const qreal zero = metrics.horizontalAdvance(u'0');
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (!qFuzzyCompare(metrics.horizontalAdvance(QChar(digit)), zero))
            return false;
    }
    return true;
}

QFont sized(QFont font, qreal factor, QFont::Weight weight)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(qRound(font.pixelSize() * factor));
    font.setWeight(weight);
    return font;
}

} // namespace

Theme& Theme::install(QApplication& application)
{
    if (!installedTheme)
        installedTheme = new Theme(application);
    return *installedTheme;
}

Theme& Theme::instance()
{
    return install(*qobject_cast<QApplication*>(QCoreApplication::instance()));
}

Theme::Theme(QApplication& application)
    : QObject(&application)
    , m_system(QApplication::palette())
{
    installedTheme = this;
    initializeIcons();
    QCoreApplication::installTranslator(new GreekTexts(this));
    noteFont();
    QApplication::setStyle(new Style(*this));
    apply();
    application.installEventFilter(this);
}

std::optional<QColor> Theme::systemColour(ColourRole role) const
{
    switch (role) {
    case ColourRole::Band:
        return m_system.color(QPalette::Window).darker(125);
    case ColourRole::Page:
        return m_system.color(QPalette::Window);
    case ColourRole::Base:
        return m_system.color(QPalette::Base);
    case ColourRole::Alternate:
        return m_system.color(QPalette::AlternateBase);
    case ColourRole::Button:
        return m_system.color(QPalette::Button);
    case ColourRole::Text:
        return m_system.color(QPalette::Text);
    case ColourRole::PageText:
        return m_system.color(QPalette::WindowText);
    case ColourRole::Highlight:
        return m_system.color(QPalette::Highlight);
    case ColourRole::HighlightText:
        return m_system.color(QPalette::HighlightedText);
    default:
        return std::nullopt;
    }
}

bool Theme::isPageLight() const
{
    return contrast(lightColour(ColourRole::PageText), *m_pageColour)
        >= contrast(darkColour(ColourRole::PageText), *m_pageColour);
}

bool Theme::isDark() const
{
    return m_pageColour && !m_isPlain ? !isPageLight() : m_dark;
}

QColor Theme::pageCompanion(ColourRole role) const
{
    const auto& column = isPageLight() ? lightColour : darkColour;
    const bool isTooFaint = isToBeRead(role) && contrast(column(role), *m_pageColour) < readable;
    return column(isTooFaint ? ColourRole::PageText : role);
}

QColor Theme::colour(ColourRole role) const
{
    if (m_pageColour && !m_isPlain) {
        if (isGround(role))
            return *m_pageColour;
        return isPageRole(role) ? pageCompanion(role) : lightColour(role);
    }
    if (m_hasHighContrast && isShade(role))
        return m_system.color(QPalette::Window);
    if (m_hasHighContrast && isFaint(role))
        return m_system.color(QPalette::WindowText);
    if (!m_dark)
        return lightColour(role);
    return systemColour(role).value_or(darkColour(role));
}

QPalette Theme::desktopPalette()
{
    const DesktopColours plain(*this, true);
    return palette();
}

QPalette Theme::palette() const
{
    QPalette palette = m_system;
    const auto put = [&](QPalette::ColorRole to, ColourRole role) { palette.setColor(to, colour(role)); };
    put(QPalette::Window, ColourRole::Page);
    put(QPalette::WindowText, ColourRole::PageText);
    put(QPalette::Base, ColourRole::Base);
    put(QPalette::AlternateBase, ColourRole::Alternate);
    put(QPalette::Text, ColourRole::Text);
    put(QPalette::PlaceholderText, ColourRole::Faint);
    put(QPalette::Button, ColourRole::Button);
    put(QPalette::ButtonText, ColourRole::Text);
    put(QPalette::Highlight, ColourRole::Highlight);
    put(QPalette::HighlightedText, ColourRole::HighlightText);
    put(QPalette::ToolTipBase, ColourRole::Base);
    put(QPalette::ToolTipText, ColourRole::Text);
    put(QPalette::Link, ColourRole::Accent);
    put(QPalette::Mid, ColourRole::Line);
    put(QPalette::Dark, ColourRole::Edge);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, colour(ColourRole::PageOffText));
    palette.setColor(QPalette::Disabled, QPalette::Text, colour(ColourRole::OffText));
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, colour(ColourRole::OffText));
    palette.setColor(QPalette::Disabled, QPalette::Base, colour(ColourRole::OffField));
    palette.setColor(QPalette::Disabled, QPalette::Button, colour(ColourRole::OffField));
    return palette;
}

void Theme::apply()
{
    const QScopedValueRollback guard(m_applying, true);
    const QColor ground = m_system.color(QPalette::Window);
    m_dark = ground.lightness() < darkBelow;
    m_hasHighContrast = contrast(m_system.color(QPalette::WindowText), ground) >= highest;
    m_applied = palette();
    QApplication::setPalette(m_applied);
    QToolTip::setPalette(m_applied);
    Q_EMIT changed();
}

void Theme::noteSystemPalette(const QPalette& system)
{
    const bool isFirst = !m_styled;
    if (m_styled == system)
        return;
    m_styled = system;
    if (isFirst)
        return;
    m_system = system;
    QMetaObject::invokeMethod(this, &Theme::apply, Qt::QueuedConnection);
}

void Theme::noteFont()
{
    const bool equal = hasEqualDigits(QApplication::font());
    m_figureFamily = equal ? QString() : QStringLiteral("Liberation Sans");
}

void Theme::setPageColour(std::optional<QColor> colour)
{
    if (colour == m_pageColour)
        return;
    m_pageColour = colour;
    apply();
}

QFont Theme::font(qreal factor, QFont::Weight weight) const
{
    return sized(QApplication::font(), factor, weight);
}

QFont Theme::figureFont(qreal factor, QFont::Weight weight) const
{
    QFont figures = font(factor, weight);
    if (!m_figureFamily.isEmpty())
        figures.setFamilies({m_figureFamily});
    return figures;
}

QFont Theme::fixedFont(qreal factor, QFont::Weight weight) const
{
    QFont fixed = font(factor, weight);
    fixed.setFamilies({QStringLiteral("Liberation Mono")});
    fixed.setStyleHint(QFont::Monospace, QFont::PreferDefault);
    fixed.setFixedPitch(true);
    return fixed;
}

bool Theme::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != qApp || m_applying)
        return false;
    if (event->type() == QEvent::ApplicationPaletteChange && QApplication::palette() != m_applied) {
        m_system = QApplication::palette();
        apply();
    } else if (event->type() == QEvent::ApplicationFontChange) {
        noteFont();
        apply();
    }
    return false;
}

} // namespace lorvan
