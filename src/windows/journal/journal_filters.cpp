#include "journal/journal_filters.h"

#include "controls/entry_field.h"
#include "look/message_window.h"
#include "look/themed_label.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

namespace lorvan {
namespace {

constexpr int between = 8;
constexpr int dayWidth = 108;
constexpr int userWidth = 140;
constexpr int codeWidth = 80;

} // namespace

JournalFilters::JournalFilters(Clock clock, QWidget* parent)
    : QWidget(parent)
    , m_clock(std::move(clock))
    , m_checks(this)
    , m_day(new EntryField(TypingRule::Date, this))
    , m_user(new EntryField(TypingRule::Any, this))
    , m_code(new EntryField(TypingRule::Any, this))
    , m_kind(new QComboBox(this))
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(between);
    addField(m_day, QStringLiteral("day"), QStringLiteral("Ημέρα ταμείου"), dayWidth);
    addField(m_user, QStringLiteral("user"), QStringLiteral("Χρήστης"), userWidth);
    addField(m_code, QStringLiteral("code"), QStringLiteral("Κωδικός"), codeWidth);
    addBelowCaption(m_kind, QStringLiteral("kind"), QStringLiteral("Είδος"));
    row->addStretch(1);
    m_kind->addItem(QStringLiteral("Όλα"));
    for (const JournalKind kind : journalKinds())
        m_kind->addItem(journalKindText(kind), static_cast<int>(kind));
    m_checks.add(m_day, [this] { return takeDay(); });
    m_checks.add(m_code, [this] { return takeCode(); });
    m_checks.add(m_user, [this] {
        JournalFilter filter = m_filter;
        filter.user = m_user->text().trimmed();
        return take(std::move(filter));
    });
    connect(m_kind, &QComboBox::activated, this, [this] {
        JournalFilter filter = m_filter;
        const QVariant kind = m_kind->currentData();
        filter.kind = kind.isValid() ? std::optional(static_cast<JournalKind>(kind.toInt())) : std::nullopt;
        take(std::move(filter));
    });
}

EntryField* JournalFilters::addField(EntryField* field, const QString& name, const QString& caption, int width)
{
    field->setLeastWidth(width);
    field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    addBelowCaption(field, name, caption);
    connect(field, &EntryField::left, this, [this, field] { m_checks.left(field); });
    return field;
}

void JournalFilters::addBelowCaption(QWidget* control, const QString& name, const QString& caption)
{
    control->setObjectName(name);
    control->setAccessibleName(caption);
    auto* const column = new QVBoxLayout;
    column->setSpacing(2);
    column->addWidget(fieldCaption(caption));
    column->addWidget(control);
    static_cast<QHBoxLayout*>(layout())->addLayout(column);
}

bool JournalFilters::takeDay()
{
    JournalFilter filter = m_filter;
    filter.day.reset();
    if (!m_day->text().trimmed().isEmpty()) {
        filter.day = checkDate(*m_day, m_clock.today());
        if (!filter.day)
            return false;
    }
    return take(std::move(filter));
}

bool JournalFilters::takeCode()
{
    JournalFilter filter = m_filter;
    filter.code.reset();
    if (const QString typed = m_code->text().trimmed(); !typed.isEmpty()) {
        bool isNumber = false;
        filter.code = typed.toLongLong(&isNumber);
        if (!isNumber) {
            showMessage(window(), QMessageBox::Information, QStringLiteral("Προσοχή"),
                QStringLiteral("Ο κωδικός πρέπει να είναι ακέραιος αριθμός"));
            return false;
        }
    }
    return take(std::move(filter));
}

/// Always true: the field is accepted.
bool JournalFilters::take(JournalFilter filter)
{
    if (filter == m_filter)
        return true;
    m_filter = std::move(filter);
    Q_EMIT changed();
    return true;
}

void JournalFilters::showSubject(const QString& subject)
{
    empty();
    m_filter.subject = subject;
    Q_EMIT changed();
}

void JournalFilters::clear()
{
    empty();
    Q_EMIT changed();
}

void JournalFilters::empty()
{
    m_checks.drop();
    for (EntryField* const field : {m_day, m_user, m_code})
        field->clear();
    m_kind->setCurrentIndex(0);
    m_filter = {};
}

QWidgetList JournalFilters::tabOrder() const
{
    return {m_day, m_user, m_code, m_kind};
}

} // namespace lorvan
