#pragma once

#include "controls/themed_label.h"

namespace lorvan {

/// The line below the day's figures that says that the program's own backup was not made; its tool tip says why. Hidden
/// until then, and it asks for nothing.
class BackupFailureLine : public ThemedLabel {
    Q_OBJECT

public:
    explicit BackupFailureLine(QWidget* parent = nullptr);

    void tell(const QString& reason);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace lorvan
