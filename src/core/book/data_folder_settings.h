#pragma once

#include <QString>

#include <cstdint>

namespace lorvan {

/// What the path file says. Filled at start-up and not changed afterwards.
struct DataFolderSettings {
    /// The system colour of button faces: not a colour of the book's own.
    static constexpr std::int32_t systemButtonFace = static_cast<std::int32_t>(0x8000000Fu);
    /// Below this a background colour is no colour of the book's own, and the window's own serves.
    static constexpr std::int32_t firstOwnColour = 1000;

    QString dataFolder; ///< Holds lorvan.mdb, mapcodes.mdb and lorvan.dat; without a trailing separator.
    std::int32_t backgroundColour = systemButtonFace; ///< 0x00BBGGRR.
    QString heading = QStringLiteral("Κεντρικό"); ///< The book's name in the main window and on reports.

    [[nodiscard]] bool hasOwnColour() const { return backgroundColour >= firstOwnColour; }
};

} // namespace lorvan
