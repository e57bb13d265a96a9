#include "door/report_window.h"

#include "controls/command_button.h"
#include "look/theme.h"
#include "look/window_placement.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{700, 400};
constexpr int margin = 12;

} // namespace

ReportWindow::ReportWindow(const QString& title, const QString& report, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("report"));
    setWindowTitle(title);
    setModal(true);
    auto* const text = new QPlainTextEdit(report);
    text->setObjectName(QStringLiteral("text"));
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(Theme::instance().fixedFont(1.0));
    auto* const close = new CommandButton({}, QStringLiteral("Κλείσιμο"));
    close->setObjectName(QStringLiteral("close"));
    close->setLook(CommandButton::Look::Solid);
    connect(close, &CommandButton::clicked, this, &QDialog::accept);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->addWidget(text, 1);
    rows->addWidget(close, 0, Qt::AlignRight);
    sizeWithin(this, firstSize);
    close->setFocus(Qt::OtherFocusReason);
}

} // namespace lorvan
