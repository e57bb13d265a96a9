#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QScopedValueRollback>

#include <optional>

class QApplication;

namespace lorvan {

/// The purpose of a colour. The Page… roles are the colours of text and lines on the background of windows: of pages,
/// dialogs, the tab band and the bar of totals. They differ from their plain counterparts only if the book has a colour
/// of its own.
enum class ColourRole {
    Band,
    Page,
    Base,
    Alternate,
    Button,
    ButtonHover,
    SolidHover,
    Text,
    Muted,
    Faint,
    OffText,
    OffField,
    Line,
    Edge,
    Accent,
    OnAccent,
    Highlight,
    HighlightText,
    Tint,
    BalanceRow,
    Income,
    Expense,
    Warning,
    Plate,
    Ground, ///< Behind the paper of a preview.
    PageText, ///< From here on: on the background of windows.
    PageMuted,
    PageOffText,
    PageLine,
    PageAccent,
    PageWarning,
    PageIncome,
    PageExpense,
};

/// Colours, fonts and style of every window. The light theme is our own; with a dark system palette, the colours of
/// backgrounds, texts and highlights are the system's. With a palette of high contrast there is one background, and
/// nothing fainter than text.
class Theme : public QObject {
    Q_OBJECT

public:
    /// Sets style, palette and the Greek texts of the toolkit's own dialogs. To be called once, before the
    /// first window is made; a second call returns the same theme.
    static Theme& install(QApplication& application);

    /// The installed theme; installs it if necessary.
    static Theme& instance();

    [[nodiscard]] QColor colour(ColourRole role) const;
    [[nodiscard]] bool isDark() const; ///< Whether the background of windows is dark.

    /// The book's own background colour. It becomes the background of every window; the text on it is taken from the
    /// theme with the better contrast. Fields and lists are white with dark text, even on a dark desktop. No value
    /// restores the theme's colours.
    void setPageColour(std::optional<QColor> colour);
    [[nodiscard]] bool hasPageColour() const { return m_pageColour.has_value(); }

    /// The palette of message boxes, which keep the desktop's colours.
    [[nodiscard]] QPalette desktopPalette();

    /// During its lifetime, and if `isMeant`, colours are as if the book had none of its own.
    class DesktopColours {
    public:
        DesktopColours(Theme& theme, bool isMeant)
            : m_keptOff(theme.m_isPlain, theme.m_isPlain || isMeant)
        {
        }

    private:
        QScopedValueRollback<bool> m_keptOff;
    };

    /// The desktop font, scaled by a factor.
    [[nodiscard]] QFont font(qreal factor = 1.0, QFont::Weight weight = QFont::Normal) const;

    /// Like font(), but with digits of equal width.
    [[nodiscard]] QFont figureFont(qreal factor = 1.0, QFont::Weight weight = QFont::Normal) const;

    /// For lists of fixed-width lines; the factor refers to the size of the desktop font.
    [[nodiscard]] QFont fixedFont(qreal factor = 1.1, QFont::Weight weight = QFont::Normal) const;

    /// Called by the style with the palette of the system.
    void noteSystemPalette(const QPalette& system);

Q_SIGNALS:
    /// Colours or fonts have changed; palettes are already up to date.
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit Theme(QApplication& application);

    void apply();
    void noteFont();
    [[nodiscard]] QPalette palette() const;
    [[nodiscard]] std::optional<QColor> systemColour(ColourRole role) const;
    [[nodiscard]] QColor pageCompanion(ColourRole role) const;
    [[nodiscard]] bool isPageLight() const;

    QPalette m_system; ///< The source of all colours: the style's palette, unless the application's has been set.
    std::optional<QPalette> m_styled; ///< The style's.
    QPalette m_applied;
    QString m_figureFamily; ///< Empty if the desktop font's digits have equal width.
    std::optional<QColor> m_pageColour;
    bool m_dark = false;
    bool m_hasHighContrast = false; ///< The system's palette has: nothing is shaded, nothing is fainter than text.
    bool m_isPlain = false; ///< The page colour is ignored.
    bool m_applying = false;
};

} // namespace lorvan
