#pragma once

#include "lists/plain_list.h"

#include <QWidget>

class QHBoxLayout;
class QLineEdit;

namespace lorvan {

class CommandButton;
class RowFilterField;
class ThemedLabel;
class TickList;

/// The texts around the list of a ChoiceList. In those with a number, "%1" is the number chosen and "%2" the total.
struct ChoiceTexts {
    QString heading;
    QString noneChosen;
    QString oneChosen;
    QString severalChosen;
    QString all; ///< On the button that selects all.
    QString none; ///< On the button that selects none.
    QString empty; ///< While there are no rows.
};

/// A list with a heading from whose many rows several can be chosen. What is typed into the field beside the heading,
/// or into the list, hides the rows that do not match, but no chosen one, and finds the first row with a word that
/// begins with it, or else the first row that contains it, without regard to letter case and accents. In the field, the
/// arrow keys move to the next or previous match, Enter toggles it, and Escape empties the field and returns to the
/// list. Rows never change their order. Below the list are the number of chosen rows and buttons for all and none.
class ChoiceList : public QWidget {
    Q_OBJECT

public:
    static constexpr int headHeight = 26; ///< So that a heading beside it can be level with it.

    ChoiceList(PlainList::Face face, const ChoiceTexts& texts, QWidget* parent = nullptr);

    /// Sets the name of the list to `list`; the field, the buttons and the line with the number are named
    /// findRow(number), chooseAll(number), chooseNone(number) and chosenCount(number).
    void setObjectNames(const QString& list, int number);

    [[nodiscard]] TickList* list() const { return m_list; }
    /// Clears the choice and the search.
    void setRows(const std::vector<ListRow>& rows);
    /// In the order of the rows.
    [[nodiscard]] std::vector<qint64> chosenData() const;

    /// In tab order.
    [[nodiscard]] QWidgetList controls() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QHBoxLayout* headRow();
    QHBoxLayout* footRow();
    CommandButton* smallButton(const QString& caption);
    bool takeListKey(const QKeyEvent& event);
    bool takeFieldKey(const QKeyEvent& event);
    void find(const QString& text);
    void showNotFound(const QString& text);
    void findNext(int step);
    [[nodiscard]] int rowWith(const QString& text, int first, int step) const;
    void goTo(int row);
    void leaveSearch();
    void toggleFound();
    void chooseAll(bool chosen);
    void chooseShown();
    void showCount();

    const ChoiceTexts m_texts;
    TickList* m_list;
    QLineEdit* m_field;
    RowFilterField* m_filter;
    ThemedLabel* m_count;
    CommandButton* m_all = nullptr;
    CommandButton* m_none = nullptr;
};

} // namespace lorvan
