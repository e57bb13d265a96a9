#include "search/search_readings.h"

#include "controls/command_button.h"
#include "controls/flow_layout.h"
#include "look/themed_label.h"
#include "search/search_texts.h"

#include <QHBoxLayout>

#include <algorithm>

namespace lorvan {
namespace {

constexpr int betweenParts = 16;
constexpr int betweenRows = 4;
constexpr int betweenButtons = 4;
constexpr int rowHeight = 26; // that of a small button
constexpr std::size_t mostTerms = 6; // the list needs room too

const QString examples = QStringLiteral("Παραδείγματα:  ΔΕΗ  214,67  >500  100..200  κωδ 205  3-11  11/2025  έξοδα  "
                                        "επιταγή  \"όπως γράφεται\"");
const QString inDescription = QStringLiteral("στην περιγραφή");
const QString tick = QStringLiteral("✓ ");

/// The terms that the line shows, by their places in the query.
std::vector<std::size_t> shownTerms(const SearchQuery& query)
{
    std::vector<std::size_t> shown;
    for (std::size_t term = 0; term < query.terms.size() && shown.size() < mostTerms; ++term) {
        if (query.terms[term].hasMeaning())
            shown.push_back(term);
    }
    return shown;
}

/// Whether buttons and labels for one query serve for the other, which differs at most in words that are not shown.
bool isShownAlike(const SearchQuery& left, const SearchQuery& right)
{
    const std::vector<std::size_t> shown = shownTerms(left);
    const auto isSame = [&](std::size_t term) {
        const SearchTerm& one = left.terms[term];
        const SearchTerm& other = right.terms[term];
        return one.text == other.text && one.meaningText == other.meaningText
            && one.isAmbiguous() == other.isAmbiguous();
    };
    return left.isEmpty() == right.isEmpty() && shown == shownTerms(right)
        && notUnderstoodText(left) == notUnderstoodText(right) && std::all_of(shown.begin(), shown.end(), isSame);
}

} // namespace

SearchReadings::SearchReadings(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("readings"));
    setLayout(new FlowLayout(betweenParts, betweenRows));
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setMinimumHeight(rowHeight);
    addLabel(examples, false);
}

void SearchReadings::empty()
{
    m_choices.clear();
    for (QWidget* const part : std::exchange(m_parts, {})) {
        part->hide();
        layout()->removeWidget(part);
        part->deleteLater(); // one of its buttons may be what was clicked
    }
}

void SearchReadings::show(const SearchQuery& query)
{
    const bool isAlike = !m_parts.empty() && isShownAlike(query, m_query);
    m_query = query;
    if (isAlike)
        return;
    empty();
    const QString text = notUnderstoodText(query);
    if (query.isEmpty() && text.isEmpty())
        addLabel(examples, false);
    for (const std::size_t term : shownTerms(query))
        addTerm(query, term);
    if (!text.isEmpty())
        addLabel(text + (query.isEmpty() ? QString() : QStringLiteral(" – αναζητήθηκαν τα υπόλοιπα")), true);
    tell(std::vector<ReadingCounts>(query.terms.size()));
}

void SearchReadings::addTerm(const SearchQuery& query, std::size_t term)
{
    const SearchTerm& each = query.terms[term];
    if (!each.isAmbiguous()) {
        addLabel(searchedText(each.text) + u' ' + each.meaningText, false);
        return;
    }
    auto* const group = new QWidget(this);
    auto* const row = new QHBoxLayout(group);
    row->setContentsMargins({});
    row->setSpacing(betweenButtons);
    row->addWidget(new ThemedLabel(searchedText(each.text), ColourRole::PageText));
    addChoice(group, term, SearchReading::Meaning, each.meaningText);
    addChoice(group, term, SearchReading::Words, inDescription);
    m_parts += group;
    layout()->addWidget(group);
    group->show();
}

void SearchReadings::addChoice(QWidget* group, std::size_t term, SearchReading reading, const QString& what)
{
    auto* const button = new CommandButton({}, what + QStringLiteral(": 0"), group); // about as wide as it will be
    button->setSmall(true);
    const bool isMeaning = reading == SearchReading::Meaning;
    button->setObjectName((isMeaning ? QStringLiteral("meaning(%1)") : QStringLiteral("words(%1)")).arg(term));
    connect(button, &CommandButton::clicked, this, [this, term, reading] { choose(term, reading); });
    group->layout()->addWidget(button);
    m_choices.push_back({term, reading, what, button});
}

void SearchReadings::choose(std::size_t term, SearchReading reading)
{
    Q_EMIT chosen(term, m_query.terms.at(term).reading == reading ? SearchReading::Either : reading);
}

bool SearchReadings::isChosen(const Choice& choice) const
{
    return m_query.terms.at(choice.term).reading == choice.reading;
}

void SearchReadings::addLabel(const QString& text, bool isWarning)
{
    auto* const label = new ThemedLabel(text, isWarning ? ColourRole::PageWarning : ColourRole::PageMuted);
    label->setParent(this);
    label->setMinimumHeight(rowHeight);
    label->setObjectName(isWarning ? QStringLiteral("notUnderstood") : QStringLiteral("reading"));
    m_parts += label;
    layout()->addWidget(label);
    label->show();
}

void SearchReadings::tell(const std::vector<ReadingCounts>& counts)
{
    for (const Choice& choice : m_choices) {
        const ReadingCounts& count = counts.at(choice.term);
        const auto found = choice.reading == SearchReading::Meaning ? count.meaning : count.words;
        const bool isOnly = isChosen(choice);
        choice.button->setCaption(
            (isOnly ? tick : QString()) + choice.what + QStringLiteral(": ") + searchCountText(found));
        choice.button->setToolTip(
            isOnly ? QStringLiteral("Πάλι και τα δύο") : QStringLiteral("Μόνο αυτές οι κινήσεις"));
    }
}

QWidgetList SearchReadings::tabOrder() const
{
    QWidgetList order;
    for (const Choice& choice : m_choices)
        order += choice.button;
    return order;
}

} // namespace lorvan
