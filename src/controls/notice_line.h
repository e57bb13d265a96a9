#pragma once

#include "controls/themed_label.h"

namespace lorvan {

/// A line below the day's figures that warns of something, a backup that was not made for example; its tool tip says
/// why. Hidden until then, and it asks for nothing.
class NoticeLine : public ThemedLabel {
    Q_OBJECT

public:
    explicit NoticeLine(const QString& objectName, QWidget* parent = nullptr);

    void tell(const QString& text, const QString& reason);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lorvan
