#include "printing/forma_tajinomhshs.h"

#include "look/window_placement.h"

#include <QCheckBox>
#include <QRadioButton>

namespace lorvan {
namespace {

constexpr QSize firstSize{280, 226};

} // namespace

FormaTajinomhshs::FormaTajinomhshs(QWidget* parent)
    : OptionQuestion(QStringLiteral("Ταξινόμηση"), QStringLiteral("Επιλογή ταξινόμησης"),
        {QStringLiteral("Κωδικός"), QStringLiteral("Περιγραφή"), QStringLiteral("Ομάδα")}, parent)
    , m_activeOnly(new QCheckBox(QStringLiteral("Μόνο οι ενεργοί")))
{
    setObjectName(QStringLiteral("FormaTajinomhshs"));
    m_activeOnly->setObjectName(QStringLiteral("Check1"));
    addBelow(m_activeOnly);
    for (const CodeSort sort : {CodeSort::Code, CodeSort::Description, CodeSort::Group}) {
        connect(&option(static_cast<int>(sort)), &QRadioButton::toggled, this, [this, sort](bool isChosen) {
            if (isChosen)
                m_sort = sort;
        });
    }
    option(static_cast<int>(CodeSort::Code)).setChecked(true);
    sizeWithin(this, firstSize);
}

CodeSelection FormaTajinomhshs::selection() const
{
    return m_activeOnly->isChecked() ? CodeSelection::Active : CodeSelection::All;
}

} // namespace lorvan
