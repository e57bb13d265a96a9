#include "printing/code_list_view.h"

#include "lists/row_delegate.h"
#include "platform/search_text.h"

#include <QApplication>

#include <algorithm>

namespace lorvan {
namespace {

bool beginsWith(const SearchText& wanted, const QString& line)
{
    const QStringView description = QStringView(line).mid(line.indexOf(u' ') + 1);
    return wanted.indexIn(line) == 0 || wanted.indexIn(description) == 0;
}

} // namespace

CodeListView::CodeListView(QWidget* parent)
    : QListView(parent)
{
    setUniformItemSizes(true);
    setItemDelegate(new RowDelegate(this));
}

void CodeListView::keyboardSearch(const QString& typed)
{
    const bool goesOn = m_sinceTyped.isValid() && m_sinceTyped.elapsed() <= QApplication::keyboardInputInterval();
    m_typed = goesOn ? m_typed + typed : typed;
    m_sinceTyped.start();
    const SearchText wanted(m_typed);
    const int count = model()->rowCount();
    const int first = std::max(currentIndex().row(), 0);
    for (int step = 0; step < count; ++step) {
        const QModelIndex line = model()->index((first + step) % count, 0);
        if (beginsWith(wanted, line.data().toString()))
            return setCurrentIndex(line);
    }
}

void CodeListView::showEvent(QShowEvent* event)
{
    m_typed.clear();
    QListView::showEvent(event);
}

} // namespace lorvan
