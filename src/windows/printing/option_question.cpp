#include "printing/option_question.h"

#include "controls/command_button.h"
#include "look/window_placement.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QRadioButton>
#include <QVBoxLayout>

namespace lorvan {
namespace {

constexpr int margin = 16;
constexpr int confirmWidth = 96;

bool isArrow(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
}

enum Option { Detailed, Summary };

constexpr QSize sizeOfErvthsh{280, 164};
constexpr QSize sizeOfFormaTajinomhshs{280, 226};

} // namespace

OptionQuestion::OptionQuestion(const QString& title, const QString& frame, const QStringList& options, QWidget* parent)
    : QDialog(parent)
    , m_rows(new QVBoxLayout)
{
    setWindowTitle(title);
    setModal(true);
    auto* const box = new QGroupBox(frame);
    auto* const list = new QVBoxLayout(box);
    list->setSpacing(4);
    for (const QString& text : options) {
        auto* const each = m_options.emplace_back(new QRadioButton(text));
        each->setObjectName(QStringLiteral("Option1(%1)").arg(m_options.size() - 1));
        each->installEventFilter(this);
        list->addWidget(each);
    }
    auto* const confirm = new CommandButton({}, QStringLiteral("OK "));
    confirm->setObjectName(QStringLiteral("SSCommand1"));
    confirm->setLook(CommandButton::Look::Solid);
    confirm->setMinimumWidth(confirmWidth);
    confirm->setDefault(true);
    connect(confirm, &CommandButton::clicked, this, &QDialog::accept);

    m_rows->setSpacing(12);
    m_rows->addWidget(box);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(margin, margin, margin, margin);
    whole->addLayout(m_rows);
    whole->addStretch(1);
    whole->addWidget(confirm, 0, Qt::AlignRight);
    m_options.front()->setFocus(Qt::OtherFocusReason);
}

/// As long as no option is chosen, the arrow keys would only move the focus.
bool OptionQuestion::eventFilter(QObject* watched, QEvent* event)
{
    if (!isArrow(*event))
        return QDialog::eventFilter(watched, event);
    watched->event(event);
    if (auto* const reached = qobject_cast<QRadioButton*>(focusWidget()))
        reached->setChecked(true);
    return true;
}

void OptionQuestion::addBelow(QWidget* widget)
{
    m_rows->addWidget(widget);
    setTabOrder(m_options.back(), widget);
}

Ervthsh::Ervthsh(QWidget* parent)
    : OptionQuestion(QStringLiteral("Ερώτηση"), QStringLiteral("Επιλογή εκτύπωσης"),
        {QStringLiteral("Αναλυτικά"), QStringLiteral("Συνοπτικά")}, parent)
{
    setObjectName(QStringLiteral("Ervthsh"));
    sizeWithin(this, sizeOfErvthsh);
}

bool Ervthsh::isDetailedChosen() const
{
    return option(Detailed).isChecked();
}

bool Ervthsh::isSummaryChosen() const
{
    return option(Summary).isChecked();
}

FormaTajinomhshs::FormaTajinomhshs(QWidget* parent)
    : OptionQuestion(QStringLiteral("Ταξινόμηση"), QStringLiteral("Επιλογή ταξινόμησης"),
        {QStringLiteral("Κωδικός"), QStringLiteral("Περιγραφή"), QStringLiteral("Ομάδα")}, parent)
    , m_activeOnly(new QCheckBox(QStringLiteral("Μόνο οι ενεργοί")))
{
    setObjectName(QStringLiteral("FormaTajinomhshs"));
    m_activeOnly->setObjectName(QStringLiteral("Check1"));
    addBelow(m_activeOnly);
    for (const CodeSort sort : {CodeSort::Code, CodeSort::Description, CodeSort::Group}) {
        connect(&option(static_cast<int>(sort)), &QRadioButton::toggled, this, [this, sort](bool isChosen) {
            if (isChosen)
                m_sort = sort;
        });
    }
    option(static_cast<int>(CodeSort::Code)).setChecked(true);
    sizeWithin(this, sizeOfFormaTajinomhshs);
}

CodeSelection FormaTajinomhshs::selection() const
{
    return m_activeOnly->isChecked() ? CodeSelection::Active : CodeSelection::All;
}

} // namespace lorvan
