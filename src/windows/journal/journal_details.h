#pragma once

#include "journal/journal.h"

#include <QWidget>

class QStandardItemModel;

namespace lorvan {

class TableList;
class ThemedLabel;

/// One change in full: who made it, where and when, and the states before and after side by side. What differs is bold
/// and has a mark in front; the first of it is scrolled to.
class JournalDetails : public QWidget {
    Q_OBJECT

public:
    explicit JournalDetails(QWidget* parent = nullptr);

    void show(const JournalRow& row);
    void clear();

    [[nodiscard]] TableList* list() const { return m_list; }

private:
    void setTitles();

    ThemedLabel* m_heading;
    QStandardItemModel* m_lines;
    TableList* m_list;
};

} // namespace lorvan
