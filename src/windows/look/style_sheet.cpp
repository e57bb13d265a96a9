#include "look/style_sheet.h"

#include "look/theme.h"

namespace lorvan {
namespace {

constexpr auto scrollBars = R"(
QScrollBar { background: transparent; border: none; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @edge; border-radius: 3px; }
QScrollBar::handle:hover { background: @muted; }
QScrollBar::handle:vertical { margin: 2px 3px; min-height: 24px; }
QScrollBar::handle:horizontal { margin: 3px 2px; min-width: 24px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; border: none; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

constexpr auto frames = R"(
QGroupBox { border: 1px solid @pageline; border-radius: 4px; margin-top: 0.55em; padding-top: 0.25em; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0 6px; color: @pagemuted; }
QGroupBox[strong="true"] { font-weight: 600; }
QGroupBox[strong="true"]::title { color: @pagetext; }
QToolTip { background: @base; color: @text; border: 1px solid @edge; padding: 3px 6px; }
)";

constexpr auto menus = R"(
QMenuBar { background: @band; border-bottom: 1px solid @pageline; }
QMenuBar::item { padding: 6px 10px; background: transparent; color: @pagetext; }
QMenuBar::item:selected { background: @hover; color: @text; }
QMenu { background: @base; border: 1px solid @edge; padding: 4px 0; }
QMenu::item { padding: 5px 28px 5px 28px; color: @text; }
QMenu::item:selected { background: @highlight; color: @highlighttext; }
QMenu::item:disabled { color: @offtext; background: transparent; }
QMenu::separator { height: 1px; background: @line; margin: 4px 0; }
)";

} // namespace

QString styleSheet(const Theme& theme)
{
    QString sheet = QLatin1String(scrollBars) + QLatin1String(frames) + QLatin1String(menus);
    const auto put = [&](const char* name, ColourRole role) {
        sheet.replace(QLatin1String(name) + u';', theme.colour(role).name() + u';');
    };
    put("@edge", ColourRole::Edge);
    put("@muted", ColourRole::Muted);
    put("@pageline", ColourRole::PageLine);
    put("@pagemuted", ColourRole::PageMuted);
    put("@pagetext", ColourRole::PageText);
    put("@base", ColourRole::Base);
    put("@text", ColourRole::Text);
    put("@band", ColourRole::Band);
    put("@line", ColourRole::Line);
    put("@hover", ColourRole::ButtonHover);
    put("@highlight", ColourRole::Highlight);
    put("@highlighttext", ColourRole::HighlightText);
    put("@offtext", ColourRole::OffText);
    return sheet;
}

} // namespace lorvan
