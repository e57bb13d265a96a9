#pragma once

#include "legacy/import_tally.h"
#include "platform/work.h"

#include <QString>

namespace lorvan {

class JetDamage;
class LegacyFiles;

/// A book in the older format has damage, and was not taken over. what() says where, in Greek.
class OlderBookDamaged : public Refused {
public:
    OlderBookDamaged(const QString& damage, const QString& readableRows);

    [[nodiscard]] const QString& damage() const { return m_damage; }
    /// "Γραμμές που διαβάζονται: kinhseis 2706, …" in spite of all damage; empty if nothing can be read.
    [[nodiscard]] const QString& readableRows() const { return m_readableRows; }

private:
    QString m_damage;
    QString m_readableRows;
};

/// Makes a new book from one in the older format, which is only read. The new one appears whole, once it has been
/// compared with what was read, or not at all. A StopCheck may end it before that. Throws OlderBookDamaged if damage is
/// refused, Refused, BookExists, GivenUp, UnknownSchemaVersion, SqlError.
[[nodiscard]] ImportTally importOlderBook(
    const LegacyFiles& files, const QString& target, JetDamage& damage, const StepProgress& progress);

/// What was taken over and what was not, on several lines, for a fixed-width font.
[[nodiscard]] QString importReport(const ImportTally& tally, const JetDamage& damage);

} // namespace lorvan
