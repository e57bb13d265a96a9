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

/// The report frame: the preview of one report, from which it is printed and saved. Made for each report anew.
class Ektypvsh : public QMainWindow {
    Q_OBJECT

public:
    /// Both must outlive the frame. The printers are asked for at once.
    Ektypvsh(Printers& printers, ReportSaver& saver);
    ~Ektypvsh() override;

    /// Takes the report, once. The title text comes from the list of reports; the file name is proposed for saving.
    void open(ReportDocument document, const QString& titleText, const QString& fileName);

    /// Says above the pages what the report leaves out. It reaches neither paper nor files.
    void tell(const std::vector<ReportOmission>& omissions);

    /// Gives up what is under way, lets go of the report and hides the window. Again, it does nothing.
    void unload();

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
    void connectSearch();

    void activate();
    void keepSize();
    void showPrinterState();

    void choosePrinter();
    void print(std::optional<int> page);
    [[nodiscard]] bool hasPrinter();
    void save(
        std::optional<QString> (ReportSaver::*how)(QWidget*, BackgroundRun&, const ReportDocument&, const QString&));
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
    QSize m_openedSize;
    bool m_openedMaximised = false;
    bool m_hasWaited = false; ///< Long enough for the printers' first answer.
};

} // namespace lorvan
