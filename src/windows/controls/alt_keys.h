#pragma once

class QApplication;

namespace lorvan {

/// From now on every button with a caption has a key with Alt, from the first time its window, or it later, is shown:
/// the first letter of its caption that no other button of the same page or window has. The key works on a Greek and on
/// a Latin layout, does what a click does, and stands in what the button's tooltip shows; caption and tooltip stay as
/// they are, and the key stays when the caption changes. A letter with Alt that is no such key types nothing.
void installAltKeys(QApplication& application);

} // namespace lorvan
