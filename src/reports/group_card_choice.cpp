#include "reports/group_card_choice.h"

#include "platform/settings_store.h"

#include <QRegularExpression>
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

std::vector<qint32> groupsIn(const QString& condition)
{
    static const QRegularExpression term(
        QStringLiteral("\\baa_omada\\s*=\\s*(-?[0-9]+)(?![\\w.,])"), QRegularExpression::CaseInsensitiveOption);
    std::vector<qint32> groups;
    auto found = term.globalMatch(condition);
    while (found.hasNext()) {
        bool fits = false;
        const qint32 number = found.next().captured(1).toInt(&fits);
        if (fits)
            groups.push_back(number);
    }
    return groups;
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

CardColumns storedCardColumns(const SettingsStore& settings)
{
    CardColumns columns;
    for (std::size_t column = 0; column < cardColumns; ++column) {
        const Setting condition = conditionSetting(column);
        const Setting title = namesSetting(column);
        columns[column].groups = groupsIn(settings.value(condition.section, condition.key, QString()));
        columns[column].title = settings.value(title.section, title.key, columns[column].title);
    }
    return columns;
}

} // namespace lorvan
