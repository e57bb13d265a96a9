#pragma once

#include "controls/action_gate.h"
#include "document/report_document.h"
#include "preview/background_run.h"
#include "preview/page_search.h"
#include "preview/preview_actions.h"
#include "reports/report_omissions.h"

#include <QMainWindow>

namespace lorvan {

class OmissionStrip;
class PreviewArea;
class PreviewTools;
class Printers;
class ReportSaver;

/// The preview of one report, from which it can be printed and saved. Each report gets a new one.
class Ektypvsh : public QMainWindow {
    Q_OBJECT

public:
    /// Both must outlive the frame. The search for printers begins at once.
    Ektypvsh(Printers& printers, ReportSaver& saver);
    ~Ektypvsh() override;

    /// Shows the first rows of a report while the others are still being read; open() then shows all of them.
    void begin(ReportDocument beginning, const QString& titleText);

    /// Shows the report; to be called once. `titleText` comes from the list of reports; `fileName` is proposed for
    /// saving.
    void open(ReportDocument document, const QString& titleText, const QString& fileName);

    /// Shows above the pages what the report leaves out. It is neither printed nor saved.
    void tell(const std::vector<ReportOmission>& omissions);

    /// Cancels the work in progress, releases the report and hides the window. A second call does nothing.
    void unload();

    [[nodiscard]] bool isOpen() const; ///< Also while it is hidden: it has not been closed.

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void followed(const lorvan::RowSubject& subject); ///< Of a line of the report.
    void unloaded();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void layOut();
    void addMenu();
    void connectActions();
    void connectView();
    void guardPrintKey();
    void noteKeyIsFree();
    void connectSearch();

    void activate();
    void showPrinterState();

    void choosePrinter();
    void print(std::optional<int> page);
    [[nodiscard]] bool hasPrinter();
    void save(std::optional<QString> (ReportSaver::*how)(QWidget*, BackgroundRun&, const ReportPages&, const QString&));
    void setPages(ReportDocument document, bool carries);
    void carrySums();
    void showPages();

    Printers& m_printers;
    ReportSaver& m_saver;
    const PreviewActions m_actions;
    const ActionGate m_gate;
    BackgroundRun m_run;
    PreviewTools* m_tools;
    OmissionStrip* m_omissions;
    PreviewArea* m_area;
    PageSearch m_search;
    QString m_titleText;
    QString m_fileName;
    bool m_isWhole = false; ///< Not while only the beginning of the report is shown.
    bool m_isPageShown = false;
    bool m_takesPrintKey = false; ///< Not the key that opened the window, however long it is held.
    bool m_hasWaited = false; ///< For the first answer of the print system.
};

} // namespace lorvan
