#pragma once

#include "controls/leave_checks.h"
#include "journal/journal_filter.h"
#include "platform/clock.h"

#include <QWidget>

class QComboBox;
class QVBoxLayout;

namespace lorvan {

class EntryField;

/// The fields that narrow down the journal: day, user, code, kind. A field counts once it is left or Enter is pressed
/// in it, an empty one for everything.
class JournalFilters : public QWidget {
    Q_OBJECT

public:
    explicit JournalFilters(Clock clock, QWidget* parent = nullptr);

    /// What the fields that were accepted say.
    [[nodiscard]] const JournalFilter& filter() const { return m_filter; }

    /// Shows one subject's history, whatever the fields said.
    void showSubject(const QString& subject);
    void clear();

    /// Checks the fields that were left and have not been checked yet. Returns false if one was refused.
    [[nodiscard]] bool settle() { return m_checks.settle(); }

    [[nodiscard]] QWidgetList tabOrder() const;

Q_SIGNALS:
    void changed();

private:
    EntryField* addField(EntryField* field, const QString& name, const QString& caption, int width);
    void addBelowCaption(QWidget* control, const QString& name, const QString& caption);
    [[nodiscard]] bool takeDay();
    [[nodiscard]] bool takeCode();
    bool take(JournalFilter filter);
    void empty();

    const Clock m_clock;
    LeaveChecks m_checks;
    EntryField* m_day;
    EntryField* m_user;
    EntryField* m_code;
    QComboBox* m_kind;
    JournalFilter m_filter;
};

} // namespace lorvan
