#include "codes/cash_analysis_groups.h"

#include "platform/files/settings_store.h"

namespace lorvan {
namespace {

Setting titleSetting(std::size_t group, const QString& title = {})
{
    return {QStringLiteral("AnalyshFRM"), QStringLiteral("Omada%1").arg(group + 1), title};
}

/// The boxes are numbered through all groups, in a section of their own.
Setting boxSetting(std::size_t group, std::size_t box, const QString& text = {})
{
    return {QStringLiteral("AnakyshFRM"), QString::number(2 * group + box) + QStringLiteral("Kvd"), text};
}

QString stored(const SettingsStore& settings, const Setting& setting, const QString& fallback = {})
{
    return settings.value(setting.section, setting.key, fallback);
}

} // namespace

CodeBox codeBoxOf(const QString& text)
{
    return {text, text.first(text.indexOf(u' ') + 1)};
}

AnalysisGroups storedAnalysisGroups(const SettingsStore& settings)
{
    AnalysisGroups groups;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        groups[i].title = stored(settings, titleSetting(i), QStringLiteral("Ομαδα %1").arg(i + 1));
        for (std::size_t box = 0; box < groups[i].boxes.size(); ++box)
            groups[i].boxes[box] = codeBoxOf(stored(settings, boxSetting(i, box)));
    }
    return groups;
}

void storeAnalysisGroups(const SettingsStore& settings, const AnalysisGroups& groups)
{
    std::vector<Setting> values;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        values.push_back(titleSetting(i, groups[i].title));
        for (std::size_t box = 0; box < groups[i].boxes.size(); ++box)
            values.push_back(boxSetting(i, box, groups[i].boxes[box].text));
    }
    settings.write(values);
}

} // namespace lorvan
