#pragma once

#include "platform/currency.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace lorvan {

/// What a series of a chart stands for; whoever paints it gives each role its colour and pattern.
enum class ChartRole { Balance, Income, Expense };

struct ChartSeries {
    QString name;
    ChartRole role = ChartRole::Balance;
    std::vector<std::optional<Currency>> values; ///< One for each place; none where nothing is known.
    bool isEarlier = false; ///< Of the year before: drawn paler, to compare with.

    friend bool operator==(const ChartSeries&, const ChartSeries&) = default;
};

/// A part of a chart with an axis of amounts of its own.
struct ChartPanel {
    enum class Kind { Lines, Bars };

    Kind kind = Kind::Bars;
    std::vector<ChartSeries> series;

    friend bool operator==(const ChartPanel&, const ChartPanel&) = default;
};

/// Amounts over a row of places (days, months, codes), to be drawn. A value: it knows no colours and no sizes.
struct Chart {
    enum class Form {
        Upright, ///< The panels below each other, over places from left to right.
        Lying ///< A single panel of bars, with a line of text for each place.
    };

    Form form = Form::Upright;
    QStringList places;
    std::vector<ChartPanel> panels;

    [[nodiscard]] bool isEmpty() const { return places.isEmpty() || panels.empty(); }
    friend bool operator==(const Chart&, const Chart&) = default;
};

} // namespace lorvan
