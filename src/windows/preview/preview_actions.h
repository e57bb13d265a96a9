#pragma once

#include <QAction>
#include <QWidget>

namespace lorvan {

/// Everything that can be done in the preview except typing, with its name, text, tip and keys. The actions belong to
/// the window.
struct PreviewActions {
    explicit PreviewActions(QWidget* window);

    // The menu's entries menu(1), menu(15), menu(20), menu(30)
    QAction* choosePrinter;
    QAction* printPage;
    QAction* print;
    QAction* back;

    QAction* firstPage;
    QAction* previousPage;
    QAction* nextPage;
    QAction* lastPage;
    QAction* zoomOut;
    QAction* zoomIn;
    QAction* zoomNormal;
    QAction* fitWidth;
    QAction* fitPage;
    QAction* savePdf;
    QAction* saveTable;
    QAction* carrySums; ///< Checkable.
    QAction* goToSearch;
    QAction* findNext;
    QAction* findPrevious;
};

} // namespace lorvan
