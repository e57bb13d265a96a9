#pragma once

#include "preview/printers.h"

#include <QDialog>

namespace lorvan {

class CommandButton;
class PlainList;

/// A modal window for choosing the current printer among those of the system. Its list is updated whenever the print
/// system answers.
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
