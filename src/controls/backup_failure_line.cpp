#include "controls/backup_failure_line.h"

#include <QPainter>

namespace lorvan {
namespace {

constexpr int sideMargin = 12; // that of the figures above
constexpr int below = 5;
constexpr qreal smallType = 0.9;

} // namespace

BackupFailureLine::BackupFailureLine(QWidget* parent)
    : ThemedLabel(QStringLiteral("Το σημερινό αντίγραφο ασφαλείας δεν έγινε."), ColourRole::Warning, smallType,
        QFont::Normal, parent)
{
    setObjectName(QStringLiteral("backupFailure"));
    setContentsMargins(sideMargin, 0, sideMargin, below);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    hide();
}

void BackupFailureLine::tell(const QString& reason)
{
    setToolTip(QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(reason.toHtmlEscaped()));
    setAccessibleDescription(reason);
    show();
}

void BackupFailureLine::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(rect(), Theme::instance().colour(ColourRole::Band));
    ThemedLabel::paintEvent(event);
}

} // namespace lorvan
