#pragma once

#include <QCheckBox>
#include <QKeyEvent>

namespace lorvan {

/// A check box of an entry form: Enter moves to the next field, the space bar toggles it.
class CheckField : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            focusNextPrevChild(true);
        else
            QCheckBox::keyPressEvent(event);
    }
};

} // namespace lorvan
