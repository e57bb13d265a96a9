#include "preview/progress_window.h"

#include "controls/command_button.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "preview/progress_line.h"

#include <QHBoxLayout>
#include <QLocale>

namespace lorvan {
namespace {

constexpr int margin = 16;
constexpr QSize firstSize{380, 132};

} // namespace

ProgressWindow::ProgressWindow(const ProgressTexts& texts, QWidget* parent)
    : QDialog(parent)
    , m_counted(texts.counted)
    , m_activity(new ThemedLabel(texts.activity, ColourRole::PageText))
    , m_count(new ThemedLabel(QString(), ColourRole::PageMuted, 0.9))
    , m_bar(new ProgressLine)
    , m_cancel(new CommandButton({}, QStringLiteral("Άκυρο")))
{
    setObjectName(QStringLiteral("progress"));
    setWindowTitle(texts.title.trimmed());
    setModal(true);
    m_bar->setAccessibleName(texts.activity);
    m_count->setObjectName(QStringLiteral("count"));
    m_cancel->setObjectName(QStringLiteral("cancel"));

    auto* const end = new QHBoxLayout;
    end->addWidget(m_count, 1);
    end->addWidget(m_cancel);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(8);
    rows->addWidget(m_activity);
    rows->addWidget(m_bar);
    rows->addStretch(1);
    rows->addLayout(end);
    sizeWithin(this, firstSize);
    connect(m_cancel, &CommandButton::clicked, this, &ProgressWindow::reject);
    m_cancel->setFocus(Qt::OtherFocusReason);
}

void ProgressWindow::setProgress(int done, int all)
{
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    m_bar->setRange(0, all);
    m_bar->setValue(done);
    m_bar->step();
    QString count;
    if (done > 0)
        count = m_counted + QStringLiteral(": ") + greek.toString(done);
    if (done > 0 && all > 0)
        count += QStringLiteral(" από ") + greek.toString(all);
    m_count->setText(count);
}

void ProgressWindow::reject()
{
    m_activity->setText(QStringLiteral("Ακυρώνεται…"));
    m_cancel->setEnabled(false);
    Q_EMIT cancelled();
}

} // namespace lorvan
