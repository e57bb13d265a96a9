#include "door/first_user_window.h"

#include "controls/entry_field.h"
#include "door/first_user_form.h"
#include "look/focus_rules.h"
#include "preview/background_run.h"

#include <utility>

namespace lorvan {
namespace {

constexpr QSize firstSize{460, 290};

} // namespace

FirstUserWindow::FirstUserWindow(BookFiles files, Clock clock, QWidget* parent)
    : EntryDialog(QStringLiteral("firstUser"), QStringLiteral("Πρώτος χρήστης"), QStringLiteral("Προσθήκη"), parent)
    , m_files(std::move(files))
    , m_clock(std::move(clock))
    , m_form(new FirstUserForm)
{
    setFields(m_form, firstSize);
    chainTabOrder(m_form->tabOrder());
    m_form->field(FirstUserField::Name).setFocus(Qt::OtherFocusReason);
}

void FirstUserWindow::carryOut()
{
    const FirstUser user = m_form->typed();
    if (const auto fault = faultOf(user)) {
        refuse(fault->text, m_form->field(fault->field));
        return;
    }
    const ProgressTexts texts{windowTitle(), QStringLiteral("Προστίθεται ο χρήστης…"), {}};
    if (runStoppable(backgroundRun(), this, texts, [&](const StepProgress&) { addFirstUser(m_files, user, m_clock); }))
        accept();
}

bool FirstUserWindow::hasTyped() const
{
    return !m_form->isEmpty();
}

} // namespace lorvan
