#pragma once

#include "search/search_match.h"
#include "search/search_query.h"

#include <QWidget>

#include <vector>

namespace lorvan {

class CommandButton;
class ThemedLabel;

/// The line below the search field: how each part of the query was read, with counts, and what was not understood.
/// Where a part is a keyword and a word, a click chooses one of the two, and another click both again.
class SearchReadings : public QWidget {
    Q_OBJECT

public:
    explicit SearchReadings(QWidget* parent = nullptr);

    /// Without a query the line shows examples.
    void show(const SearchQuery& query);
    /// One count for each term of the query that is shown.
    void tell(const std::vector<ReadingCounts>& counts);

    /// The buttons, as they follow each other.
    [[nodiscard]] QWidgetList tabOrder() const;

Q_SIGNALS:
    void chosen(std::size_t term, lorvan::SearchReading reading);

private:
    struct Choice {
        std::size_t term;
        SearchReading reading;
        QString what;
        CommandButton* button;
    };

    void empty();
    void addTerm(const SearchQuery& query, std::size_t term);
    void addChoice(QWidget* group, std::size_t term, SearchReading reading, const QString& what);
    void addLabel(const QString& text, bool isWarning);
    void choose(std::size_t term, SearchReading reading);
    [[nodiscard]] bool isChosen(const Choice& choice) const;

    SearchQuery m_query;
    std::vector<Choice> m_choices;
    QWidgetList m_parts;
};

} // namespace lorvan
