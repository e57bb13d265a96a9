#include "platform/engine/greek_collation.h"

#include <QLocale>

namespace lorvan {

GreekCollation::GreekCollation()
    : m_collator(QLocale(QLocale::Greek, QLocale::Greece))
{
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

int GreekCollation::compare(const QString& left, const QString& right) const
{
    const QString foldedLeft = left.toCaseFolded();
    const QString foldedRight = right.toCaseFolded();
    if (foldedLeft == foldedRight)
        return 0;
    const int order = m_collator.compare(left, right);
    // The collator considers some different texts equal (those with invisible characters); as names they must not
    // match.
    return order != 0 ? order : foldedLeft.compare(foldedRight);
}

} // namespace lorvan
