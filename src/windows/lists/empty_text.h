#pragma once

class QAbstractScrollArea;
class QString;

namespace lorvan {

/// Paints in grey what is still missing from a list that shows nothing below `top`, in pixels of its viewport. To be
/// called while the list paints itself.
void paintEmptyText(QAbstractScrollArea& list, int top, const QString& text);

} // namespace lorvan
