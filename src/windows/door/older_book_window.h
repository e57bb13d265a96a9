#pragma once

#include "door/transfer_window.h"

namespace lorvan {

/// "Από παλαιότερο πρόγραμμα": makes a new book from one in the older format.
class OlderBookWindow : public TransferWindow {
    Q_OBJECT

public:
    explicit OlderBookWindow(QWidget* parent);

protected:
    [[nodiscard]] QString browse() override;
    [[nodiscard]] QString faultOfTarget(const QString& folder) const override;
    [[nodiscard]] std::optional<QString> transfer(const QString& source, const QString& folder) override;
};

} // namespace lorvan
