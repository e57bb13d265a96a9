#pragma once

#include "controls/action_gate.h"
#include "controls/book_reader.h"
#include "figures/book_picture.h"
#include "platform/clock.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLayout;

namespace lorvan {

class ChartView;
class CommandButton;
class FigureTable;
class ThemedLabel;

/// The window "Εικόνα του βιβλίου": balance, income and expense by day, week, month or year, by group, and the largest
/// codes, drawn and as a table. It only reads. Stands beside the main window; Alt+Left leads from days back to the
/// months they were chosen from, Escape closes it.
class PictureWindow : public QDialog {
    Q_OBJECT

public:
    using Print = std::function<void(const PictureRequest& request, QWidget* window)>;

    /// The keys must outlive the window.
    PictureWindow(BookFiles files, KeyRing& keys, Clock clock, Print print, QWidget* parent);
    ~PictureWindow() override;

    /// Shows the window, or brings it to the front, and reads what is shown again.
    void present();

    [[nodiscard]] const PictureRequest& request() const { return m_request; }

Q_SIGNALS:
    void dayChosen(QDate day);
    void codeChosen(qint32 code);

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QComboBox* newChoice(const char* name, const QString& caption, const QStringList& entries);
    void layOut();
    QLayout* choiceRow();
    QLayout* commandRow();
    void connectControls();

    void ask(const PictureRequest& request);
    void changeStep(FigureStep step);
    void moveSpan(int direction);
    void read();
    void showPicture(const BookPicture& picture);
    void choose(int place);
    void goBack();

    const Clock m_clock;
    const Print m_print;
    const ActionGate m_gate;
    BookReader m_reader;
    PictureRequest m_request;
    std::vector<PictureRequest> m_origins; ///< Of the spans that were chosen in the picture, the last one at the end.
    PictureRequest m_shown; ///< What the picture answers.
    BookPicture m_picture;
    QComboBox* m_subject;
    QComboBox* m_step;
    CommandButton* m_earlier;
    ThemedLabel* m_span;
    CommandButton* m_later;
    QCheckBox* m_compares;
    ThemedLabel* m_title;
    ChartView* m_chart;
    FigureTable* m_table;
    CommandButton* m_printing;
    CommandButton* m_close;
};

} // namespace lorvan
