#pragma once

#include "preview/preview_actions.h"
#include "report_pages.h"

#include <QWidget>

#include <functional>
#include <utility>
#include <vector>

class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace lorvan {

class ActionButton;
class CommandButton;

/// The tool row of the preview: printing, pages, size, saving, search and the way back. If there is not enough width,
/// the search field shrinks first, then captions of icons that speak for themselves are hidden, then tools move into a
/// menu; printing and the way back lose their captions last.
class PreviewTools : public QWidget {
    Q_OBJECT

public:
    using Direction = ReportPages::Direction;

    PreviewTools(const PreviewActions& actions, QWidget* parent);

    /// Pages count from 0. While more pages are being laid out, their number is shown with a plus sign.
    void setPages(int current, int count, bool isComplete);
    void setZoom(double zoom);
    void goToSearch(); ///< With all of its text selected.
    void setSearchFailed(bool hasFailed); ///< The text was not found.

    /// The tools in tab order, which follow the view itself.
    [[nodiscard]] std::vector<QWidget*> tabOrder() const;

    [[nodiscard]] QSize minimumSizeHint() const override;

Q_SIGNALS:
    void pageEntered(int page);
    void soughtChanged(const QString& text);
    void findAsked(lorvan::ReportPages::Direction direction);
    void left(); ///< Escape or Enter in a field: the user returns to the pages.

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    ActionButton* add(QAction* action, const char* icon, const QString& caption = {});
    QWidget* addSeparator();
    void addTurning(const PreviewActions& actions);
    void addSizes(const PreviewActions& actions);
    void addSaving(const PreviewActions& actions);
    void planSteps(ActionButton* print, ActionButton* back);
    void offerFolded();
    void fold(const std::vector<QWidget*>& tools);
    void addPageNumber();
    void addSearch();
    void enterPage();
    void measure();
    void showAll();
    void showWhatFits();
    [[nodiscard]] int neededWidth() const;

    QHBoxLayout* m_row;
    QLineEdit* m_page;
    QLabel* m_count;
    QLabel* m_zoom;
    QLineEdit* m_sought;
    CommandButton* m_more = nullptr; ///< Opens the menu; there only while something is in it.
    std::vector<QWidget*> m_ends, m_zooms, m_fits, m_saving; ///< What moves into the menu together.
    std::vector<QWidget*> m_foldable; ///< All of these.
    std::vector<ActionButton*> m_captioned;
    std::vector<std::pair<ActionButton*, QAction*>> m_buttons; ///< In the order of the row.
    std::vector<std::function<void()>> m_steps; ///< Each makes the row narrower than the one before.
    std::vector<QWidget*> m_order;
    int m_current = 0;
    qsizetype m_digits = 0; ///< The number of digits for which the page number has room.
    int m_leastWidth = 0; ///< After all steps.
};

} // namespace lorvan
