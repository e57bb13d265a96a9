#include "preview/progress_window.h"

#include "controls/command_button.h"
#include "look/style_painting.h"
#include "look/theme.h"
#include "look/themed_label.h"
#include "look/window_placement.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QPainter>

namespace lorvan {
namespace {

constexpr int margin = 16;
constexpr QSize firstSize{380, 152};

constexpr int thickness = 12;
constexpr int stepsAcross = 40;
constexpr double share = 0.25; // of the bar: the section that advances

} // namespace

ProgressWindow::ProgressWindow(const ProgressTexts& texts, QWidget* parent)
    : QDialog(parent)
    , m_counted(texts.counted)
    , m_activity(new ThemedLabel(texts.activity, ColourRole::PageText))
    , m_count(new ThemedLabel(QString(), ColourRole::PageMuted, 0.9))
    , m_left(new ThemedLabel(QString(), ColourRole::PageMuted, 0.9))
    , m_bar(new ProgressLine)
    , m_cancel(new CommandButton({}, QStringLiteral("Άκυρο")))
{
    setObjectName(QStringLiteral("progress"));
    setWindowTitle(texts.title.trimmed());
    setModal(true);
    m_bar->setAccessibleName(texts.activity);
    m_count->setObjectName(QStringLiteral("count"));
    m_left->setObjectName(QStringLiteral("timeLeft"));
    m_activity->setObjectName(QStringLiteral("activity"));
    m_activity->setWordWrap(true);
    m_cancel->setObjectName(QStringLiteral("cancel"));
    QSizePolicy keepPlace = m_cancel->sizePolicy();
    keepPlace.setRetainSizeWhenHidden(true);
    m_cancel->setSizePolicy(keepPlace);

    auto* const end = new QHBoxLayout;
    end->addWidget(m_left, 1);
    end->addWidget(m_cancel);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(8);
    rows->addWidget(m_activity);
    rows->addWidget(m_bar);
    rows->addWidget(m_count);
    rows->addStretch(1);
    rows->addLayout(end);
    sizeWithin(this, firstSize);
    connect(m_cancel, &CommandButton::clicked, this, &ProgressWindow::reject);
    m_cancel->setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus); // one Enter too many must not give up the work
    setFocus(Qt::OtherFocusReason);
}

void ProgressWindow::setProgress(int done, int all)
{
    m_bar->setRange(0, all);
    m_bar->setValue(done);
    m_bar->step();
    m_pace.note(done, all, std::chrono::steady_clock::now());
    m_count->setText(countText(done, all));
    m_left->setText(m_isCancelled || m_isDecided ? QString() : m_pace.timeLeft());
}

QString ProgressWindow::countText(int done, int all) const
{
    static const QLocale greek(QLocale::Greek, QLocale::Greece);
    if (m_counted.isEmpty())
        return all > 0 ? QStringLiteral("%1%").arg(m_pace.percent().value_or(0)) : QString();
    if (done == 0)
        return {};
    const QString count = m_counted + QStringLiteral(": ") + greek.toString(done);
    return all > 0 ? count + QStringLiteral(" από ") + greek.toString(all) : count;
}

void ProgressWindow::setActivity(const QString& activity)
{
    if (m_isCancelled || m_isDecided || m_activity->text() == activity)
        return;
    m_activity->setText(activity);
    m_bar->setAccessibleName(activity);
}

void ProgressWindow::setDecided()
{
    if (m_isDecided)
        return;
    m_isDecided = true;
    m_activity->setText(QStringLiteral("Ολοκληρώνεται και δεν ακυρώνεται πια…"));
    m_bar->setAccessibleName(m_activity->text());
    m_cancel->hide();
}

void ProgressWindow::reject()
{
    if (m_isDecided)
        return;
    m_isCancelled = true;
    m_activity->setText(QStringLiteral("Ακυρώνεται…"));
    m_cancel->setEnabled(false);
    Q_EMIT cancelled();
}

ProgressLine::ProgressLine(QWidget* parent)
    : QProgressBar(parent)
{
    setRange(0, 0);
    setTextVisible(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressLine::step()
{
    m_steps = (m_steps + 1) % stepsAcross;
    update();
}

QSize ProgressLine::sizeHint() const
{
    return {200, thickness};
}

QRectF ProgressLine::filled() const
{
    const QRectF inside = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (maximum() > minimum())
        return {inside.topLeft(), QSizeF(inside.width() * value() / maximum(), inside.height())};
    const double left = inside.left() + inside.width() * (1 + share) * m_steps / stepsAcross - inside.width() * share;
    return QRectF(left, inside.top(), inside.width() * share, inside.height()).intersected(inside);
}

void ProgressLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const Theme& theme = Theme::instance();
    paintPanel(painter, rect(), theme.colour(ColourRole::Base), theme.colour(ColourRole::Edge), 1);
    if (const QRectF part = filled(); part.width() > 2 * cornerRadius)
        paintPanel(
            painter, part, theme.colour(ColourRole::Accent), theme.colour(ColourRole::Accent), 1, cornerRadius - 1);
}

} // namespace lorvan
