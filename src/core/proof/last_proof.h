#pragma once

#include <QDateTime>

#include <optional>

namespace lorvan {

class BookFiles;
class SettingsStore;

/// When this user's program last found balances and seals of a book proved.
struct LastProof {
    QDateTime at;
    std::int64_t movements = 0;
    std::int64_t days = 0;
    std::int64_t seals = 0;

    friend bool operator==(const LastProof&, const LastProof&) = default;
};

/// No value if nothing is remembered about the book. Throws SettingsError.
[[nodiscard]] std::optional<LastProof> lastProof(const SettingsStore& settings, const BookFiles& book);
/// Throws SettingsError.
void rememberProof(const SettingsStore& settings, const BookFiles& book, const LastProof& proof);

/// Whether a program that may write proves the balances without being asked: not where the book has to be read over a
/// network and was found proved within the last 12 hours.
[[nodiscard]] bool provesUnasked(bool isOnNetwork, const std::optional<LastProof>& last, const QDateTime& now);

/// The same for the folder in which the book lies.
[[nodiscard]] bool isOnNetwork(const BookFiles& book);

} // namespace lorvan
