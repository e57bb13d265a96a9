#pragma once

#include <QObject>

class QLineEdit;

namespace lorvan {

class PlainList;

/// Hides the rows of a list that do not match what is typed into a field; selected rows stay visible. The rows
/// themselves stay where they are.
class RowFilterField : public QObject {
    Q_OBJECT

public:
    RowFilterField(QLineEdit* field, PlainList* list);
    /// Makes the field: Escape empties it, Down leads into the list. `name` is its object name, `what` the rows in the
    /// genitive plural.
    RowFilterField(const QString& name, const QString& what, const QString& tip, PlainList* list);

    [[nodiscard]] QLineEdit* field() const { return m_field; }

    /// To be called after the list got other rows.
    void apply();

private:
    void showSelected();

    QLineEdit* m_field;
    PlainList* m_list;
};

} // namespace lorvan
