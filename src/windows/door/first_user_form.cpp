#include "door/first_user_form.h"

#include "controls/check_field.h"
#include "controls/entry_field.h"
#include "door/entry_dialog.h"

#include <QGridLayout>

namespace lorvan {

FirstUserForm::FirstUserForm(QWidget* parent)
    : QGroupBox(QStringLiteral("Πρώτος χρήστης"), parent)
    , m_name(newEntry("userName", {}))
    , m_password(newEntry("password", {}))
    , m_repeated(newEntry("repeated", {}))
    , m_rights{new CheckField(QStringLiteral("Να μεταβάλει τις εγγραφές του ταμείου"), this),
          new CheckField(QStringLiteral("Να κλήνει το ταμείο"), this),
          new CheckField(QStringLiteral("Να μεταβάλει ομάδες και κωδικούς"), this)}
{
    m_password->setEchoMode(QLineEdit::Password);
    m_repeated->setEchoMode(QLineEdit::Password);
    auto* const grid = new QGridLayout(this);
    grid->setVerticalSpacing(6);
    addEntryRow(grid, QStringLiteral("Χρήστης"), m_name);
    addEntryRow(grid, QStringLiteral("Κωδικός"), m_password);
    addEntryRow(grid, QStringLiteral("Ο κωδικός ξανά"), m_repeated);
    int number = 0;
    for (QCheckBox* const right : m_rights) {
        right->setObjectName(QStringLiteral("right%1").arg(++number));
        right->setChecked(true);
        grid->addWidget(right, grid->rowCount(), 0, 1, 3);
    }
    grid->setRowStretch(grid->rowCount(), 1);
}

FirstUser FirstUserForm::typed() const
{
    return {m_name->text(), m_password->text(), m_repeated->text(),
        {m_rights[0]->isChecked(), m_rights[1]->isChecked(), m_rights[2]->isChecked()}};
}

bool FirstUserForm::isEmpty() const
{
    return m_name->text().isEmpty() && m_password->text().isEmpty();
}

EntryField& FirstUserForm::field(FirstUserField field) const
{
    switch (field) {
    case FirstUserField::Password:
        return *m_password;
    case FirstUserField::Repeated:
        return *m_repeated;
    default:
        return *m_name;
    }
}

QWidgetList FirstUserForm::tabOrder() const
{
    return {m_name, m_password, m_repeated, m_rights[0], m_rights[1], m_rights[2]};
}

} // namespace lorvan
