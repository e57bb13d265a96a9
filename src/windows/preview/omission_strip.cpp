#include "preview/omission_strip.h"

#include "controls/command_button.h"
#include "look/themed_label.h"
#include "preview/omission_list.h"

#include <QHBoxLayout>
#include <QPainter>

#include <memory>

namespace lorvan {
namespace {

constexpr int sideMargin = 12;
constexpr int endMargin = 4;

} // namespace

OmissionStrip::OmissionStrip(QWidget* parent)
    : QWidget(parent)
    , m_rows(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("omissions"));
    m_rows->setContentsMargins(sideMargin, endMargin, sideMargin, endMargin + 1);
    m_rows->setSpacing(2);
    hide();
}

void OmissionStrip::tell(const std::vector<ReportOmission>& omissions, QWidget* before)
{
    clear();
    for (const ReportOmission& omission : omissions)
        before = add(omission, before);
    setVisible(!omissions.empty());
}

void OmissionStrip::clear()
{
    while (const std::unique_ptr<QLayoutItem> row{m_rows->takeAt(0)})
        delete row->widget();
}

/// The last one in the tab order.
QWidget* OmissionStrip::add(const ReportOmission& omission, QWidget* before)
{
    auto* const line = new QWidget(this);
    auto* const row = new QHBoxLayout(line);
    row->setContentsMargins({});
    auto* const text = new ThemedLabel(omission.text, ColourRole::Warning);
    text->setWordWrap(true);
    row->addWidget(text, 1);
    m_rows->addWidget(line);
    if (omission.concerned == 0)
        return before;
    auto* const which = new CommandButton({}, QStringLiteral("Ποιες;"));
    which->setObjectName(QStringLiteral("which"));
    which->setLook(CommandButton::Look::Quiet);
    which->setSmall(true);
    which->setAccessibleDescription(omission.text);
    row->addWidget(which);
    connect(which, &CommandButton::clicked, this, [this, omission] { OmissionList(omission, window()).exec(); });
    setTabOrder(before, which);
    return which;
}

void OmissionStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::instance().colour(ColourRole::Band));
    painter.fillRect(QRect(0, height() - 1, width(), 1), Theme::instance().colour(ColourRole::Line));
}

} // namespace lorvan
