#pragma once

#include "look/theme.h"

#include <QLabel>

namespace lorvan {

/// A plain-text label whose colour and size follow the theme.
class ThemedLabel : public QLabel {
    Q_OBJECT

public:
    /// `factor` refers to the size of the desktop font.
    ThemedLabel(const QString& text, ColourRole role, qreal factor = 1.0, QFont::Weight weight = QFont::Normal,
        QWidget* parent = nullptr);

    void setRole(ColourRole role);

private:
    void dress();

    ColourRole m_role;
    qreal m_factor;
    QFont::Weight m_weight;
};

/// The small muted caption above a field. Above an amount it is right-aligned like the digits.
enum class CaptionOver { Text, Amount };
[[nodiscard]] ThemedLabel* fieldCaption(const QString& text, CaptionOver over = CaptionOver::Text);

/// The semi-bold heading above a list.
[[nodiscard]] ThemedLabel* listHeading(const QString& text);

} // namespace lorvan
