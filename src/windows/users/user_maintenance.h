#pragma once

#include "book/book_files.h"
#include "users/user_accounts.h"

#include <QGroupBox>

#include <array>
#include <functional>
#include <optional>

class QCheckBox;
class QLayout;

namespace lorvan {

class CommandButton;
class EntryField;
class KeyRing;
class PlainList;

/// The frame `SSFrame1` of the enlarged sign-in window, where the built-in administrator manages the users. A click
/// shows a user, a double click allows changing and deleting it.
class UserMaintenance : public QGroupBox {
    Q_OBJECT

public:
    /// `keys` must outlive the frame.
    UserMaintenance(BookFiles files, KeyRing& keys, Clock clock, QWidget* parent);

    /// Reads the users again and selects none; a failure is shown in a box and leaves the list empty.
    void refill();

    void addUser();
    void changeUser();
    void removeUser();

    [[nodiscard]] PlainList* list() const { return m_list; }
    [[nodiscard]] EntryField* name() const { return m_name; }
    [[nodiscard]] EntryField* password() const { return m_password; }
    /// In the order of the rights: change cash records, close the cash, change codes.
    [[nodiscard]] const std::array<QCheckBox*, 3>& checks() const { return m_checks; }

    /// Lays out the frame with the buttons that add, change and delete.
    void layOut(const std::array<CommandButton*, 3>& commands);

Q_SIGNALS:
    /// Whether a user may now be changed and deleted.
    void offered(bool isOffered);
    void removed();
    /// The Delete key was pressed on the user who may be deleted.
    void removalAsked();

private:
    QLayout* fields();
    void connectList();
    void show(const QModelIndex& index);
    void fillList();
    void offer(std::optional<UserAccount> user);
    [[nodiscard]] const UserAccount& userAt(const QModelIndex& index) const;
    [[nodiscard]] UserAccount typed() const;
    void tellThatUserIsGone();
    [[nodiscard]] bool refusedAsIncomplete();
    bool write(const std::function<void(Connection&, const Authority&)>& change);

    BookFiles m_files;
    KeyRing& m_keys;
    const Clock m_clock;
    std::vector<UserAccount> m_users;
    std::optional<UserAccount> m_offered; ///< The user, as read, whom the buttons change and delete.
    PlainList* m_list;
    EntryField* m_name;
    EntryField* m_password;
    std::array<QCheckBox*, 3> m_checks{};
};

} // namespace lorvan
