#pragma once

namespace lorvan {

/// Indices of the main window's text fields `Text1(i)`.
namespace field {
inline constexpr int date = 0;
inline constexpr int description = 1;
inline constexpr int income = 2;
inline constexpr int expense = 3;
inline constexpr int code = 4;
inline constexpr int codeDescription = 5;
inline constexpr int codeGroup = 6;
inline constexpr int periodStart = 7;
inline constexpr int periodEnd = 8;
inline constexpr int memorandum = 9;
} // namespace field

/// Indices of the main window's buttons `Command1(i)`.
namespace command {
inline constexpr int insertMovement = 0;
inline constexpr int printReport = 1;
inline constexpr int modifyMovement = 2;
inline constexpr int removeMovement = 3;
inline constexpr int exitFromCashPage = 4;
inline constexpr int insertCode = 5;
inline constexpr int modifyCode = 6;
inline constexpr int removeCode = 7;
inline constexpr int closeCash = 8;
inline constexpr int exitFromCodesPage = 9;
inline constexpr int editGroups = 10;
} // namespace command

/// Indices of the captions `Label2(i)` inside the buttons.
namespace caption {
inline constexpr int insertMovement = 0;
inline constexpr int printReport = 1;
inline constexpr int modifyMovement = 2;
inline constexpr int removeMovement = 3;
inline constexpr int exitFromCodesPage = 5;
inline constexpr int removeCode = 6;
inline constexpr int insertCode = 7;
inline constexpr int modifyCode = 8;
inline constexpr int editGroups = 9;
inline constexpr int closeCash = 10;
} // namespace caption

/// Positions of the tabs of `Tab1`.
namespace tab {
inline constexpr int cashBook = 0;
inline constexpr int codes = 1;
inline constexpr int printing = 2;
inline constexpr int exit = 3;
} // namespace tab

} // namespace lorvan
