#pragma once

#include <QDate>
#include <QDialog>

#include <optional>
#include <vector>

namespace lorvan {

/// Lists days of the cash that are not closed. A click on a day, or Enter, chooses it; Escape closes the window.
class OpenDaysList : public QDialog {
    Q_OBJECT

public:
    OpenDaysList(const std::vector<QDate>& days, QWidget* parent);

    /// No value unless the user has chosen a day.
    [[nodiscard]] std::optional<QDate> chosen() const { return m_chosen; }

private:
    void choose(const QModelIndex& day);

    std::optional<QDate> m_chosen;
};

} // namespace lorvan
