#pragma once

namespace lorvan {

/// Whether the pages of a preview carry sums, in the user's settings. Not at first, nor where these cannot be read.
[[nodiscard]] bool carriesSums();

/// If the settings cannot be written, the choice holds for this preview only.
void rememberCarriesSums(bool carries);

} // namespace lorvan
