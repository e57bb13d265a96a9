#include "codes/group_card_choice.h"

#include "platform/files/settings_store.h"

#include <QStringList>

namespace lorvan {
namespace {

Setting positionsSetting(std::size_t column)
{
    return {QStringLiteral("Listes"), QStringLiteral("List1(%1)").arg(column), {}};
}

Setting conditionSetting(std::size_t column)
{
    return {QStringLiteral("Omades"), QStringLiteral("Omada(%1)").arg(column), {}};
}

Setting namesSetting(std::size_t column)
{
    return {QStringLiteral("P_Omadvn"), QStringLiteral("P_omadvn%1").arg(column), {}};
}

QString conditionFor(const std::vector<ChosenGroup>& groups)
{
    QStringList terms;
    for (const ChosenGroup& group : groups)
        terms += QStringLiteral(" aa_omada=") + QString::number(group.number);
    return terms.isEmpty() ? QString() : u'(' + terms.join(QStringLiteral("  or")) + u')';
}

void addColumn(std::vector<Setting>& values, std::size_t column, const std::vector<ChosenGroup>& groups)
{
    Setting positions = positionsSetting(column);
    QStringList names;
    for (const ChosenGroup& group : groups) {
        positions.value += QString::number(group.position) + u',';
        names += group.name;
    }
    Setting condition = conditionSetting(column);
    condition.value = conditionFor(groups);
    Setting title = namesSetting(column);
    title.value = names.join(QStringLiteral(", "));
    values.insert(values.end(), {positions, condition, title});
}

} // namespace

void storeCardChoice(const SettingsStore& settings, const CardChoice& choice)
{
    std::vector<Setting> values;
    for (std::size_t column = 0; column < cardColumns; ++column)
        addColumn(values, column, choice[column]);
    settings.write(values);
}

std::vector<int> storedCardPositions(const SettingsStore& settings, std::size_t column)
{
    const Setting setting = positionsSetting(column);
    const QStringList texts = settings.value(setting.section, setting.key, QString()).split(u',');
    std::vector<int> positions;
    for (const QString& text : texts) {
        bool isNumber = false;
        const int position = text.toInt(&isNumber);
        if (isNumber && position >= 0)
            positions.push_back(position);
    }
    return positions;
}

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
