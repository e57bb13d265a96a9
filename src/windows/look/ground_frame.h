#pragma once

#include "look/theme.h"

#include <QFrame>

namespace lorvan {

/// A plain area with the background of a colour role, and a separating line along one edge.
class GroundFrame : public QFrame {
    Q_OBJECT

public:
    enum class Separator { Right, Top };

    GroundFrame(ColourRole ground, Separator separator, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColourRole m_ground;
    Separator m_separator;
};

} // namespace lorvan
