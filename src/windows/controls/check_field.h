#pragma once

#include "look/focus_rules.h"

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
        if (isEnter(*event))
            focusNextPrevChild(true);
        else
            QCheckBox::keyPressEvent(event);
    }
};

} // namespace lorvan
