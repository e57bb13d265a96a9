#include "cashbook/tape_window.h"

#include "controls/command_button.h"
#include "controls/key_binding.h"
#include "look/focus_rules.h"
#include "look/themed_label.h"
#include "look/window_placement.h"
#include "platform/amount_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace lorvan {
namespace {

constexpr QSize firstSize{280, 360};
constexpr int margin = 16;
constexpr int buttonWidth = 96;

} // namespace

TapeWindow::TapeWindow(const QString& begun, QWidget* parent)
    : QDialog(parent)
    , m_lines(new QPlainTextEdit(this))
    , m_sum(new ThemedLabel({}, ColourRole::PageText, 1.2, QFont::DemiBold, this))
    , m_refusal(new ThemedLabel({}, ColourRole::PageWarning, 1.0, QFont::Normal, this))
{
    setObjectName(QStringLiteral("tape"));
    setWindowTitle(QStringLiteral("Ταινία"));
    m_lines->setObjectName(QStringLiteral("tapeLines"));
    m_lines->setAccessibleName(QStringLiteral("Ποσά, ένα σε κάθε γραμμή"));
    m_lines->setToolTip(QStringLiteral("Το + και το Enter αρχίζουν νέα γραμμή, το - μια που αφαιρείται. Με Enter σε "
                                       "κενή γραμμή το άθροισμα πηγαίνει στο πεδίο"));
    m_lines->setFont(Theme::instance().fixedFont());
    m_lines->document()->setDefaultTextOption(QTextOption(Qt::AlignRight));
    m_lines->setTabChangesFocus(true);
    m_lines->installEventFilter(this);
    m_sum->setObjectName(QStringLiteral("tapeSum"));
    m_refusal->setObjectName(QStringLiteral("tapeRefusal"));
    m_refusal->setWordWrap(true);

    auto* const rows = new QVBoxLayout(this);
    rows->setContentsMargins(margin, margin, margin, margin);
    rows->addWidget(m_lines, 1);
    auto* const total = new QHBoxLayout;
    total->addWidget(new ThemedLabel(QStringLiteral("Σύνολο"), ColourRole::PageMuted));
    total->addStretch(1);
    total->addWidget(m_sum);
    rows->addLayout(total);
    rows->addWidget(m_refusal);
    auto* const take = new CommandButton({}, QStringLiteral("ΟΚ"));
    take->setObjectName(QStringLiteral("takeSum"));
    take->setLook(CommandButton::Look::Solid);
    take->setMinimumWidth(buttonWidth);
    take->setAutoDefault(false);
    connect(take, &CommandButton::clicked, this, &TapeWindow::takeSum);
    rows->addWidget(take, 0, Qt::AlignRight);

    connect(m_lines, &QPlainTextEdit::textChanged, this, &TapeWindow::readLines);
    m_lines->setPlainText(begun.isEmpty() ? begun : begun + u'\n');
    m_lines->moveCursor(QTextCursor::End);
    readLines();
    sizeWithin(this, firstSize);
    centreOnWorkArea(this);
}

bool TapeWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched == m_lines && takeKey(static_cast<const QKeyEvent&>(*event)))
        return true;
    return QDialog::eventFilter(watched, event);
}

bool TapeWindow::takeKey(const QKeyEvent& event)
{
    if (asksFor(event, KeyUse::OpenTape) || asksFor(event, KeyUse::Store)) {
        if (!event.isAutoRepeat())
            takeSum();
    } else if (isEnter(event)) {
        if (!event.isAutoRepeat())
            enter();
    } else if (event.text() == QLatin1String("+")) {
        beginLine({});
    } else if (event.text() == QLatin1String("-")) {
        beginLine(event.text());
    } else if (event.text() == QLatin1String(".")) {
        m_lines->insertPlainText(QStringLiteral(","));
    } else {
        return false;
    }
    return true;
}

/// On an empty line there is nothing to go on from.
void TapeWindow::beginLine(const QString& sign)
{
    const bool isEmpty = m_lines->textCursor().block().text().trimmed().isEmpty();
    m_lines->moveCursor(QTextCursor::EndOfBlock);
    m_lines->insertPlainText(isEmpty ? sign : u'\n' + sign);
}

void TapeWindow::enter()
{
    const QTextBlock block = m_lines->textCursor().block();
    if (!block.text().trimmed().isEmpty())
        beginLine({});
    else if (!block.next().isValid())
        takeSum();
    else
        m_lines->moveCursor(QTextCursor::NextBlock);
}

void TapeWindow::readLines()
{
    m_tape = readTape(m_lines->toPlainText());
    m_sum->setText(m_tape.isSum() ? amountText(m_tape.sum) : QString());
    m_refusal->setText(QString());
    mark();
}

void TapeWindow::mark()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (QTextBlock block = m_lines->document()->begin(); block.isValid(); block = block.next()) {
        if (!m_tape.lines.at(static_cast<std::size_t>(block.blockNumber())).isWrong())
            continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.cursor.select(QTextCursor::LineUnderCursor);
        mark.format.setForeground(Theme::instance().colour(ColourRole::Expense));
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(Theme::instance().colour(ColourRole::Expense));
        marks += mark;
    }
    m_lines->setExtraSelections(marks);
}

void TapeWindow::takeSum()
{
    const QString refusal = tapeRefusal(m_tape);
    if (refusal.isEmpty()) {
        accept();
        return;
    }
    m_refusal->setText(refusal);
    if (const int wrong = m_tape.firstWrong(); wrong >= 0)
        m_lines->setTextCursor(QTextCursor(m_lines->document()->findBlockByNumber(wrong)));
    m_lines->setFocus(Qt::OtherFocusReason);
}

} // namespace lorvan
