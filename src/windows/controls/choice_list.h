#pragma once

#include "controls/plain_list.h"

#include <QWidget>

class QHBoxLayout;
class QLineEdit;

namespace lorvan {

class CommandButton;
class ThemedLabel;
class TickList;

/// What stands around the list of a ChoiceList. The texts with a number have "%1" chosen of "%2".
struct ChoiceTexts {
    QString heading;
    QString noneChosen;
    QString oneChosen;
    QString severalChosen;
    QString all; ///< On the button that chooses all.
    QString none; ///< On the button that chooses none.
};

/// A list of many rows of which several can be chosen, under its heading. What is typed into the field beside the
/// heading, or into the list, goes to the first row with a word that begins so, else to one that holds it anywhere,
/// without regard to letter case and accents. In the field, arrows go to the next and the previous such row and Enter
/// chooses it or no more; Escape goes back to the list. Rows never move. Below stand how many are chosen, and buttons
/// for all and none.
class ChoiceList : public QWidget {
    Q_OBJECT

public:
    static constexpr int headHeight = 26; ///< For a heading beside it to stand level.

    ChoiceList(PlainList::Face face, const ChoiceTexts& texts, QWidget* parent = nullptr);

    /// The list is called `list`; field, buttons and the line that counts are findRow(number), chooseAll(number),
    /// chooseNone(number) and chosenCount(number).
    void setObjectNames(const QString& list, int number);

    [[nodiscard]] TickList* list() const { return m_list; }
    /// Nothing is chosen or looked for then.
    void setRows(const std::vector<ListRow>& rows);
    /// In the order of the rows.
    [[nodiscard]] std::vector<qint64> chosenData() const;

    /// In the order of the tab key.
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
    void endSearch();
    void toggleFound();
    void chooseAll(bool chosen);
    void showCount();

    const ChoiceTexts m_texts;
    TickList* m_list;
    QLineEdit* m_field;
    ThemedLabel* m_count;
    CommandButton* m_all = nullptr;
    CommandButton* m_none = nullptr;
};

} // namespace lorvan
