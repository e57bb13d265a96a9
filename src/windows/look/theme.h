#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QScopedValueRollback>

#include <optional>

class QApplication;

namespace lorvan {

/// What a colour is for. The Page… roles are the text and line colours on the ground of windows: of pages, dialogs, the
/// tab band and the bar of totals. They differ from their plain counterparts only while the book has a colour of its
/// own.
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
    PageText, ///< From here on: on the ground of windows.
    PageMuted,
    PageOffText,
    PageLine,
    PageAccent,
    PageWarning,
    PageIncome,
    PageExpense,
};

/// Colours, fonts and style of every window. The light theme is our own; with a dark system palette the grounds, texts
/// and highlights are the system's.
class Theme : public QObject {
    Q_OBJECT

public:
    /// Sets style, palette, style sheet and the Greek texts of the toolkit's own dialogs. Call once, before the first
    /// window; a second call returns the same theme.
    static Theme& install(QApplication& application);

    /// The installed theme; installs it if nobody has.
    static Theme& instance();

    [[nodiscard]] QColor colour(ColourRole role) const;
    [[nodiscard]] bool isDark() const; ///< The ground of windows is.

    /// The book's own background. It becomes the ground of every window; the text on it comes from whichever theme
    /// contrasts better. Fields and lists are white, with dark text, also on a dark desktop. Empty goes back to the
    /// theme's colours.
    void setPageColour(std::optional<QColor> colour);
    [[nodiscard]] bool hasPageColour() const { return m_pageColour.has_value(); }

    /// The palette of message boxes, which keep the desktop's colours.
    [[nodiscard]] QPalette desktopPalette();

    /// While it lives, and `isMeant`, colours are as if the book had none of its own.
    class DesktopColours {
    public:
        DesktopColours(Theme& theme, bool isMeant)
            : m_keptOff(theme.m_isPlain, theme.m_isPlain || isMeant)
        {
        }

    private:
        QScopedValueRollback<bool> m_keptOff;
    };

    /// The desktop font at a factor of its size.
    [[nodiscard]] QFont font(qreal factor = 1.0, QFont::Weight weight = QFont::Normal) const;

    /// As font(), with ten digits of one width.
    [[nodiscard]] QFont figureFont(qreal factor = 1.0, QFont::Weight weight = QFont::Normal) const;

    /// For lists of fixed-width lines; the factor is one of the desktop font's size.
    [[nodiscard]] QFont fixedFont(qreal factor = 1.1, QFont::Weight weight = QFont::Normal) const;

    /// Called by the style with the palette that the system wishes.
    void noteSystemPalette(const QPalette& system);

Q_SIGNALS:
    /// Colours or fonts have changed; palettes and style sheet are in place already.
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

    QPalette m_system; ///< Colours come from here: the style's, unless somebody has set the application's.
    std::optional<QPalette> m_styled; ///< The style's.
    QPalette m_applied;
    QString m_figureFamily; ///< Empty where the desktop font's digits are of one width.
    std::optional<QColor> m_pageColour;
    bool m_dark = false;
    bool m_isPlain = false; ///< The page colour is passed over.
    bool m_applying = false;
};

} // namespace lorvan
