#include "codes/card_columns.h"

#include <QStringList>

namespace lorvan {

CardColumns cardColumnsOf(const CardChoice& choice)
{
    CardColumns columns;
    for (std::size_t column = 0; column < cardColumns; ++column) {
        QStringList names;
        for (const ChosenGroup& group : choice[column]) {
            names += group.name;
            columns[column].groups.push_back(group.number);
        }
        columns[column].title = names.join(QStringLiteral(", "));
    }
    return columns;
}

} // namespace lorvan
