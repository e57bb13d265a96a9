#pragma once

#include "codes/code_catalogue.h"
#include "codes/group_card_choice.h"
#include "platform/files/settings_store.h"

#include <QDialog>

#include <array>

class QLabel;
class QVBoxLayout;

namespace lorvan {

class TickList;

/// The choice of the groups for the three columns of the group card. Modal; however it is closed, it stores the choice.
/// If that fails, it tells the user and closes, and choice() still returns the choice.
class EpiloghOmadvn : public QDialog {
    Q_OBJECT

public:
    /// The groups in the order of the main window's list. The stored choice is selected, by position; if it cannot be
    /// read, the user is told and nothing is selected.
    EpiloghOmadvn(const std::vector<CodeGroup>& groups, SettingsStore settings, QWidget* parent = nullptr);

    [[nodiscard]] CardChoice choice() const;

    void done(int result) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QVBoxLayout* column(std::size_t column);
    QWidget* addFilter();
    void fill(const std::vector<CodeGroup>& groups);
    void restore();
    void showCount(std::size_t column);

    const SettingsStore m_settings;
    std::array<TickList*, cardColumns> m_lists{};
    std::array<QLabel*, cardColumns> m_counts{};
    bool m_isRestored = false;
};

} // namespace lorvan
