#pragma once

#include "preview/printers.h"

#include <QDialog>

namespace lorvan {

class CommandButton;
class PlainList;

/// The choice of the current printer among those the system has. Its list follows the answers of the print system.
/// Modal.
class PrinterChoice : public QDialog {
    Q_OBJECT

public:
    PrinterChoice(Printers& printers, QWidget* parent);

    void accept() override;

private:
    void refill();
    [[nodiscard]] QString selectedName() const;

    Printers& m_printers;
    std::vector<Printer> m_shown;
    PlainList* m_list;
    CommandButton* m_confirm;
};

} // namespace lorvan
