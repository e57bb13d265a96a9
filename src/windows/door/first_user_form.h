#pragma once

#include "books/first_user.h"

#include <QGroupBox>

#include <array>

class QCheckBox;

namespace lorvan {

class EntryField;

/// The fields of a book's first user: name, password twice, rights.
class FirstUserForm : public QGroupBox {
    Q_OBJECT

public:
    explicit FirstUserForm(QWidget* parent = nullptr);

    [[nodiscard]] FirstUser typed() const;
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] EntryField& field(FirstUserField field) const;
    [[nodiscard]] QWidgetList tabOrder() const;

private:
    EntryField* m_name;
    EntryField* m_password;
    EntryField* m_repeated;
    std::array<QCheckBox*, 3> m_rights; ///< In the order of Rights.
};

} // namespace lorvan
