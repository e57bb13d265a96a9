#include "help/help_window.h"

#include "controls/command_button.h"
#include "lists/plain_list.h"
#include "look/focus_rules.h"
#include "look/remembered_size.h"
#include "look/theme.h"
#include "look/themed_label.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>

#include <algorithm>
#include <utility>

namespace lorvan {
namespace {

constexpr QSize firstSize{900, 640};
constexpr int contentsWidth = 260;
constexpr int margin = 12;
constexpr int between = 8;
constexpr int textMargin = 14;
constexpr int aboveChapter = 8;

/// The text, with pictures that are never wider than it.
class ManualView : public QTextBrowser {
public:
    ManualView(QTextDocument& manual, QWidget* parent)
        : QTextBrowser(parent)
        , m_manual(manual)
    {
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that the width does not depend on the text
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QTextBrowser::resizeEvent(event);
        if (const int width = viewport()->width(); std::exchange(m_width, width) != width)
            fitPictures(m_manual, width - 2 * textMargin, devicePixelRatioF());
    }

private:
    QTextDocument& m_manual;
    int m_width = 0;
};

} // namespace

HelpWindow::HelpWindow(Print print, QWidget* parent)
    : QDialog(parent)
    , m_print(std::move(print))
    , m_gate(this)
    , m_manual(readManual())
    , m_chapters(chaptersOf(*m_manual))
    , m_contents(new PlainList(PlainList::Face::Desktop, this))
    , m_sought(new QLineEdit(this))
    , m_answer(new ThemedLabel({}, ColourRole::PageMuted))
    , m_text(new ManualView(*m_manual, this))
    , m_printing(new CommandButton(QStringLiteral("print"), QStringLiteral("Εκτύπωση")))
    , m_close(new CommandButton(QStringLiteral("exit"), QStringLiteral("Κλείσιμο")))
{
    setObjectName(QStringLiteral("help"));
    setWindowTitle(QStringLiteral("Οδηγίες"));
    layOut();
    connectControls();
    fill();
    dress();
    keepSize(this, firstSize);
}

void HelpWindow::layOut()
{
    m_contents->setObjectName(QStringLiteral("contents"));
    m_contents->setAccessibleName(QStringLiteral("Περιεχόμενα"));
    m_sought->setObjectName(QStringLiteral("findText"));
    m_sought->setPlaceholderText(QStringLiteral("Εύρεση"));
    m_sought->setAccessibleName(QStringLiteral("Εύρεση στις οδηγίες"));
    m_sought->setToolTip(QStringLiteral("Εύρεση στις οδηγίες (Ctrl+F)· Enter και F3 για το επόμενο, Shift+F3 για το "
                                        "προηγούμενο"));
    m_answer->setObjectName(QStringLiteral("answer"));
    m_text->setObjectName(QStringLiteral("manual"));
    m_text->setAccessibleName(QStringLiteral("Το κείμενο των οδηγιών"));
    m_text->setOpenLinks(false);
    m_printing->setObjectName(QStringLiteral("print"));
    m_printing->setVisible(m_print != nullptr);
    m_close->setObjectName(QStringLiteral("close"));
    m_close->setLook(CommandButton::Look::Quiet);

    auto* const left = new QWidget(this);
    auto* const leftRows = new QVBoxLayout(left);
    leftRows->setContentsMargins({});
    leftRows->setSpacing(between);
    leftRows->addWidget(m_sought);
    leftRows->addWidget(m_answer);
    leftRows->addWidget(m_contents, 1);
    auto* const both = new QSplitter(Qt::Horizontal, this);
    both->setChildrenCollapsible(false);
    both->addWidget(left);
    both->addWidget(m_text);
    both->setStretchFactor(1, 1);
    both->setSizes({contentsWidth, firstSize.width() - contentsWidth});
    auto* const commands = new QHBoxLayout;
    commands->setSpacing(between);
    commands->addStretch(1);
    commands->addWidget(m_printing);
    commands->addWidget(m_close);
    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->setSpacing(between);
    rows->addWidget(both, 1);
    rows->addLayout(commands);
    chainTabOrder({m_sought, m_contents, m_text, m_printing, m_close});
}

void HelpWindow::connectControls()
{
    m_gate.connect(m_close, {}, [this] { hide(); });
    m_gate.connect(m_printing, {}, [this] { m_print(this); });
    connect(m_contents, &PlainList::clicked, this, &HelpWindow::followChapter);
    connect(m_contents, &PlainList::opened, this, [this] { m_text->setFocus(Qt::OtherFocusReason); });
    connect(m_sought, &QLineEdit::textChanged, this, [this] { m_answer->setText({}); });
    const auto bind = [this](const QKeySequence& keys, const std::function<void()>& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    bind(QKeySequence::Find, [this] {
        m_sought->setFocus(Qt::ShortcutFocusReason);
        m_sought->selectAll();
    });
    bind(Qt::Key_F3, [this] { findNext(false); });
    bind(Qt::SHIFT | Qt::Key_F3, [this] { findNext(true); });
    connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const auto chapter = std::find_if(m_chapters.begin(), m_chapters.end(), [&link](const ManualChapter& each) {
            return each.title.compare(link.fragment(QUrl::FullyDecoded).replace(u'-', u' '), Qt::CaseInsensitive) == 0;
        });
        if (chapter != m_chapters.end())
            goTo(chapter->position, 0);
    });
    connect(&Theme::instance(), &Theme::changed, this, &HelpWindow::dress);
}

void HelpWindow::fill()
{
    std::vector<ListRow> rows;
    for (const ManualChapter& chapter : m_chapters)
        rows.push_back({(chapter.level > 2 ? QStringLiteral("      ") : QString()) + chapter.title, chapter.position});
    m_contents->setRows(rows);
    m_manual->setDocumentMargin(textMargin);
    m_text->setDocument(m_manual.get());
}

void HelpWindow::dress()
{
    m_manual->setDefaultFont(Theme::instance().font());
    QPalette colours = m_text->palette();
    colours.setColor(QPalette::Inactive, QPalette::Highlight, Theme::instance().colour(ColourRole::Highlight));
    colours.setColor(
        QPalette::Inactive, QPalette::HighlightedText, Theme::instance().colour(ColourRole::HighlightText));
    m_text->setPalette(colours);
}

void HelpWindow::present(const QString& chapter)
{
    const bool wasHidden = isHidden();
    show();
    raise();
    activateWindow();
    if (wasHidden)
        m_text->setFocus(Qt::OtherFocusReason);
    const auto found = std::find_if(
        m_chapters.begin(), m_chapters.end(), [&chapter](const ManualChapter& each) { return each.title == chapter; });
    if (found == m_chapters.end())
        return;
    m_contents->selectData(found->position);
    goTo(found->position, 0);
}

/// A chapter comes to the top of the text, what was found is only brought into view.
void HelpWindow::goTo(int position, int length)
{
    QTextCursor cursor(m_manual.get());
    cursor.setPosition(position);
    cursor.setPosition(position + length, QTextCursor::KeepAnchor);
    m_text->setTextCursor(cursor);
    if (length > 0)
        return;
    QScrollBar& bar = *m_text->verticalScrollBar();
    bar.setValue(bar.value() + m_text->cursorRect(cursor).top() - aboveChapter);
}

void HelpWindow::followChapter()
{
    goTo(m_contents->currentIndex().data(Qt::UserRole).toInt(), 0);
}

/// At the end of the text it goes on from the other end.
void HelpWindow::findNext(bool isBackward)
{
    const QString text = m_sought->text();
    const QTextCursor cursor = m_text->textCursor();
    int place = findIn(*m_manual, text, isBackward ? cursor.selectionStart() : cursor.selectionEnd(), isBackward);
    if (place < 0)
        place = findIn(*m_manual, text, isBackward ? m_manual->characterCount() : 0, isBackward);
    m_answer->setText(place < 0 && !text.isEmpty() ? QStringLiteral("Δεν υπάρχει στις οδηγίες.") : QString());
    if (place >= 0)
        goTo(place, static_cast<int>(text.size()));
}

/// Escape closes the window.
void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    if (isEnter(*event) && m_sought->hasFocus())
        findNext(event->modifiers().testFlag(Qt::ShiftModifier));
    else if (!isEnter(*event))
        QDialog::keyPressEvent(event);
}

} // namespace lorvan
