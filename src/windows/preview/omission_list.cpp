#include "preview/omission_list.h"

#include "controls/command_button.h"
#include "lists/plain_list.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr QSize firstSize{860, 420};
constexpr int margin = 16;
constexpr int listFrame = 1;

/// Placed above the lines' columns.
QLabel* columnTitles(const QString& titles, const PlainList& list)
{
    auto* const label = new QLabel(titles);
    label->setTextFormat(Qt::PlainText);
    label->setFont(list.font());
    label->setContentsMargins(list.textInset() + listFrame, 0, 0, 0);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return label;
}

std::vector<ListRow> rowsOf(const QStringList& lines)
{
    std::vector<ListRow> rows;
    for (const QString& line : lines)
        rows.push_back({line});
    return rows;
}

} // namespace

OmissionList::OmissionList(const ReportOmission& omission, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("omissionList"));
    setWindowTitle(QStringLiteral("Τι δεν λέει η εκτύπωση"));
    setModal(true);
    auto* const text = new ThemedLabel(omission.text, ColourRole::PageText);
    text->setWordWrap(true);
    auto* const list = new PlainList(PlainList::Face::FixedWidth);
    list->setObjectName(QStringLiteral("concerned"));
    list->setAccessibleName(omission.text);
    list->setRows(rowsOf(omission.lines));
    list->setCurrentIndex(list->model()->index(0, 0));
    auto* const close = new CommandButton({}, QStringLiteral("Κλείσιμο"));
    close->setObjectName(QStringLiteral("close"));
    close->setDefault(true);
    connect(close, &CommandButton::clicked, this, &QDialog::accept);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->addWidget(text);
    rows->addWidget(columnTitles(omission.titles, *list));
    rows->addWidget(list, 1);
    if (omission.concerned > omission.lines.size())
        rows->addWidget(new ThemedLabel(
            QStringLiteral("Φαίνονται οι %1 νεότερες από %2.").arg(omission.lines.size()).arg(omission.concerned),
            ColourRole::PageMuted));
    rows->addWidget(close, 0, Qt::AlignRight);
    sizeWithin(this, firstSize);
    list->setFocus(Qt::OtherFocusReason);
}

} // namespace lorvan
