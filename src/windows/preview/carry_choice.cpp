#include "preview/carry_choice.h"

#include "platform/files/settings_store.h"

namespace lorvan {
namespace {

const QString section = QStringLiteral("Preview");
const QString key = QStringLiteral("CarrySums");
const QString on = QStringLiteral("1");

} // namespace

bool carriesSums()
{
    try {
        return SettingsStore().value(section, key, {}) == on;
    } catch (const SettingsError&) {
        return false;
    }
}

void rememberCarriesSums(bool carries)
{
    try {
        SettingsStore().write({{section, key, carries ? on : QStringLiteral("0")}});
    } catch (const SettingsError&) {
        // The next preview begins with the earlier choice.
    }
}

} // namespace lorvan
