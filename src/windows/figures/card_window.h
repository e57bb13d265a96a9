#pragma once

#include "controls/action_gate.h"
#include "controls/book_reader.h"
#include "figures/code_card.h"

#include <QDialog>

class QLayout;

namespace lorvan {

class ChartView;
class CommandButton;
class FigureTable;
class ThemedLabel;

/// The window "Καρτέλα κωδικού": the months of a code as bars, its averages and its last movement, and the movements of
/// the month that is marked. It only reads. Stands beside the main window; Escape and Alt+Left close it.
class CardWindow : public QDialog {
    Q_OBJECT

public:
    /// The keys must outlive the window.
    CardWindow(BookFiles files, KeyRing& keys, QWidget* parent);
    ~CardWindow() override;

    /// Shows the card of that code and brings the window to the front.
    void present(qint32 code);

    /// The movement that is selected, if any.
    [[nodiscard]] const Movement* selected() const;

Q_SIGNALS:
    void movementChosen(const Movement& movement);
    void copyAsked(qint64 key, bool toToday); ///< A movement into the entry of the shown day or of today.

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void layOut();
    QLayout* commandRow();
    void connectControls();

    void read(qint32 code);
    void showCard(const CodeCard& card);
    void tell(const CodeCard& card);
    void readMonth(int place);
    void showMonth(const CashFigure& month, const std::vector<Movement>& movements);
    void goTo(int row);
    void copy(bool toToday);

    const ActionGate m_gate;
    BookReader m_reader;
    CodeCard m_card;
    bool m_isReading = false; ///< A card, which is not shown yet.
    std::vector<Movement> m_movements; ///< Of the month that is marked.
    ThemedLabel* m_title;
    ThemedLabel* m_sums;
    ThemedLabel* m_last;
    ChartView* m_chart;
    ThemedLabel* m_month;
    FigureTable* m_list;
    CommandButton* m_go;
    CommandButton* m_close;
};

} // namespace lorvan
