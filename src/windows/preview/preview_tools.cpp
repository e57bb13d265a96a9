#include "preview/preview_tools.h"

#include "controls/command_button.h"
#include "look/focus_rules.h"
#include "look/icons.h"
#include "look/theme.h"
#include "look/themed_label.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr int rowHeight = 42;
constexpr int sideMargin = 8;
constexpr int spacing = 2;
constexpr int groupGap = 3;
constexpr int leastDigits = 3;
constexpr int aroundDigits = 24;
constexpr int searchWidth = 140;
constexpr int leastSearchWidth = 40;
constexpr int separatorHeight = 22;
constexpr int mostPages = 9'999'999;

int widthOf(const QString& text)
{
    return QFontMetrics(Theme::instance().font()).horizontalAdvance(text);
}

ThemedLabel* figureLabel(const char* name)
{
    auto* const label = new ThemedLabel(QString(), ColourRole::PageText);
    label->setObjectName(QString::fromLatin1(name));
    label->setAlignment(Qt::AlignCenter);
    return label;
}

bool isKeyOfWindow(const QWidget& window, const QKeyEvent& key)
{
    const QKeySequence pressed(key.keyCombination());
    const QList<QAction*> actions = window.actions();
    return std::any_of(actions.begin(), actions.end(),
        [&pressed](const QAction* action) { return action->shortcuts().contains(pressed); });
}

class SeparatorLine : public QWidget {
public:
    SeparatorLine() { setFixedSize(2 * groupGap + 1, separatorHeight); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter(this).fillRect(QRect(groupGap, 0, 1, height()), Theme::instance().colour(ColourRole::PageLine));
    }
};

} // namespace

PreviewTools::PreviewTools(const PreviewActions& actions, QWidget* parent)
    : QWidget(parent)
    , m_row(new QHBoxLayout(this))
{
    m_row->setContentsMargins(sideMargin, 0, sideMargin, 0);
    m_row->setSpacing(spacing);
    setFixedHeight(std::max(rowHeight, fontMetrics().height() + 20));
    ActionButton* const print = add(actions.print, "print", actions.print->text());
    print->setLook(CommandButton::Look::Solid);
    addSeparator();
    addTurning(actions);
    addSizes(actions);
    addSaving(actions);
    m_row->addStretch(1);
    addSearch();
    m_row->addSpacing(groupGap);
    ActionButton* const back = add(actions.back, "back", actions.back->text());
    back->setLook(CommandButton::Look::Quiet);
    for (ActionButton* const button : {print, back})
        button->setFrameless(false);
    planSteps(print, back);
    m_digits = leastDigits;
    connect(&Theme::instance(), &Theme::changed, this, &PreviewTools::measure);
    measure();
}

ActionButton* PreviewTools::add(QAction* action, const char* icon, const QString& caption)
{
    auto* const button = new ActionButton(action, QString::fromLatin1(icon), caption);
    button->setFrameless(true);
    m_row->addWidget(button);
    m_order.push_back(button);
    m_buttons.emplace_back(button, action);
    return button;
}

void PreviewTools::addTurning(const PreviewActions& actions)
{
    m_ends.push_back(add(actions.firstPage, "first"));
    add(actions.previousPage, "prev");
    addPageNumber();
    add(actions.nextPage, "next");
    m_ends.push_back(add(actions.lastPage, "last"));
}

void PreviewTools::addSizes(const PreviewActions& actions)
{
    m_zoom = figureLabel("zoom");
    m_zooms = {addSeparator(), add(actions.zoomOut, "zoomout"), m_zoom};
    m_row->addWidget(m_zoom);
    m_zooms.push_back(add(actions.zoomIn, "zoomin"));
    m_fits = {add(actions.fitWidth, "width"), add(actions.fitPage, "pages")};
}

void PreviewTools::addSaving(const PreviewActions& actions)
{
    m_saving.push_back(addSeparator());
    m_captioned = {add(actions.carrySums, "carry", QStringLiteral("Μεταφορές")),
        add(actions.savePdf, "pdf", QStringLiteral("PDF")), add(actions.saveTable, "table", QStringLiteral("XLSX"))};
    m_saving.insert(m_saving.end(), m_captioned.begin(), m_captioned.end());
    m_more = newCommand("more", QStringLiteral("more"), {}, QStringLiteral("Περισσότερα εργαλεία"));
    m_more->setFrameless(true);
    m_row->addWidget(m_more);
    m_order.push_back(m_more);
    connect(m_more, &CommandButton::clicked, this, &PreviewTools::offerFolded);
}

void PreviewTools::planSteps(ActionButton* print, ActionButton* back)
{
    for (const auto* const tools : {&m_ends, &m_zooms, &m_fits, &m_saving})
        m_foldable.insert(m_foldable.end(), tools->begin(), tools->end());
    const auto withoutCaption = [this](std::vector<ActionButton*> buttons) {
        m_captioned.insert(m_captioned.end(), buttons.begin(), buttons.end());
        m_steps.emplace_back([buttons = std::move(buttons)] {
            for (ActionButton* const button : buttons)
                button->showCaption(false);
        });
    };
    const std::vector<ActionButton*> saving = std::exchange(m_captioned, {});
    withoutCaption({saving[0]});
    withoutCaption({saving[1], saving[2]});
    for (const auto* const tools : {&m_fits, &m_zooms, &m_ends, &m_saving})
        m_steps.emplace_back([this, tools] { fold(*tools); });
    withoutCaption({back});
    withoutCaption({print});
}

QWidget* PreviewTools::addSeparator()
{
    auto* const line = new SeparatorLine;
    m_row->addWidget(line);
    return line;
}

void PreviewTools::addPageNumber()
{
    m_page = new QLineEdit;
    m_page->setObjectName(QStringLiteral("pageNumber"));
    m_page->setAccessibleName(QStringLiteral("Αριθμός σελίδας"));
    m_page->setToolTip(QStringLiteral("Σελίδα"));
    m_page->setAlignment(Qt::AlignHCenter);
    m_page->setValidator(new QIntValidator(1, mostPages, m_page));
    m_page->installEventFilter(this);
    connect(m_page, &QLineEdit::returnPressed, this, &PreviewTools::enterPage);
    m_count = figureLabel("pageCount");
    m_row->addWidget(m_page);
    m_row->addWidget(m_count);
    m_order.push_back(m_page);
}

void PreviewTools::addSearch()
{
    m_sought = new QLineEdit;
    m_sought->setObjectName(QStringLiteral("findText"));
    m_sought->setPlaceholderText(QStringLiteral("Εύρεση"));
    m_sought->setAccessibleName(QStringLiteral("Εύρεση στην εκτύπωση"));
    m_sought->setToolTip(QStringLiteral("Εύρεση στην εκτύπωση (Ctrl+F)· Enter και F3 για το επόμενο, Shift+F3 για το "
                                        "προηγούμενο"));
    m_sought->setMinimumWidth(leastSearchWidth);
    m_sought->setMaximumWidth(searchWidth);
    QAction* const lens =
        m_sought->addAction(themedIcon(QStringLiteral("search"), ColourRole::Muted), QLineEdit::LeadingPosition);
    if (auto* const button = m_sought->findChild<QAbstractButton*>())
        button->setAccessibleName(QStringLiteral("Εύρεση"));
    connect(lens, &QAction::triggered, this, &PreviewTools::goToSearch);
    m_sought->installEventFilter(this);
    connect(m_sought, &QLineEdit::textChanged, this, &PreviewTools::soughtChanged);
    m_row->addWidget(m_sought, 100);
    m_order.push_back(m_sought);
}

std::vector<QWidget*> PreviewTools::tabOrder() const
{
    return m_order;
}

// What is shown

/// The numbers keep their room as long as it is enough, so that nothing moves while pages are turned.
void PreviewTools::setPages(int current, int count, bool isComplete)
{
    m_current = current;
    if (const auto digits = QString::number(count).size(); digits > m_digits) {
        m_digits = digits;
        measure();
    }
    if (!m_page->isModified()) // not while the user is typing a number as pages are added
        m_page->setText(QString::number(current + 1));
    m_count->setText(QStringLiteral("/ %1%2").arg(count).arg(isComplete ? QString() : QStringLiteral("+")));
}

void PreviewTools::setZoom(double zoom)
{
    m_zoom->setText(QStringLiteral("%1 %").arg(qRound(zoom * 100)));
}

void PreviewTools::goToSearch()
{
    m_sought->setFocus(Qt::ShortcutFocusReason);
    m_sought->selectAll();
}

void PreviewTools::setSearchFailed(bool hasFailed)
{
    QPalette colours;
    if (hasFailed)
        colours.setColor(QPalette::Text, Theme::instance().colour(ColourRole::Expense));
    m_sought->setPalette(colours);
}

// Fields

void PreviewTools::enterPage()
{
    const int page = m_page->text().toInt() - 1;
    m_page->setModified(false);
    Q_EMIT pageEntered(page);
    Q_EMIT left();
}

bool PreviewTools::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_page && event->type() == QEvent::FocusOut)
        m_page->setText(QString::number(m_current + 1));
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return QWidget::eventFilter(watched, event);
    auto* const key = static_cast<QKeyEvent*>(event);
    if (event->type() == QEvent::ShortcutOverride) {
        key->ignore(); // a line edit uses some keys itself, such as Ctrl+E
        return isKeyOfWindow(*window(), *key);
    }
    if (key->key() == Qt::Key_Escape) {
        Q_EMIT left();
        return true;
    }
    if (watched == m_sought && isEnter(*key)) {
        const bool isBack = key->modifiers().testFlag(Qt::ShiftModifier);
        Q_EMIT findAsked(isBack ? Direction::Backward : Direction::Forward);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Width

void PreviewTools::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    showWhatFits();
}

void PreviewTools::measure()
{
    m_zoom->setMinimumWidth(widthOf(QStringLiteral("400 %")) + 2 * groupGap);
    const int digits = widthOf(QString(m_digits, u'8'));
    m_page->setFixedWidth(digits + aroundDigits);
    m_count->setMinimumWidth(digits + widthOf(QStringLiteral("/ +")) + groupGap);
    for (const auto& step : m_steps)
        step();
    m_leastWidth = neededWidth();
    showWhatFits();
    updateGeometry();
}

QSize PreviewTools::minimumSizeHint() const
{
    return {m_leastWidth, minimumHeight()};
}

void PreviewTools::showAll()
{
    for (ActionButton* const button : m_captioned)
        button->showCaption(true);
    for (QWidget* const tool : m_foldable)
        tool->setVisible(true);
    m_more->setVisible(false);
}

void PreviewTools::showWhatFits()
{
    showAll();
    for (auto step = m_steps.begin(); step != m_steps.end() && neededWidth() > width(); ++step)
        (*step)();
}

void PreviewTools::fold(const std::vector<QWidget*>& tools)
{
    for (QWidget* const tool : tools)
        tool->setVisible(false);
    m_more->setVisible(true);
}

void PreviewTools::offerFolded()
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& [button, action] : m_buttons) {
        if (button->isHidden())
            menu->addAction(action);
    }
    menu->setActiveAction(menu->actions().constFirst());
    menu->popup(m_more->mapToGlobal(QPoint(0, m_more->height())));
}

int PreviewTools::neededWidth() const
{
    m_row->invalidate();
    return m_row->minimumSize().width();
}

void PreviewTools::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::instance().colour(ColourRole::Page));
    painter.fillRect(QRect(0, height() - 1, width(), 1), Theme::instance().colour(ColourRole::Line));
}

} // namespace lorvan
