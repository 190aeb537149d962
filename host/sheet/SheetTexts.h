#pragma once

namespace ko {

/// The set-up sheet's texts by their numbers in the string table.
namespace sheetText {
inline constexpr int channels = 3023;
inline constexpr int menuEntry = 3356;
inline constexpr int sheet = 3357;
inline constexpr int file = 3358;
inline constexpr int made = 3359;
inline constexpr int plan = 3360;
inline constexpr int schedule = 3361;
inline constexpr int group = 3362;
inline constexpr int channel = 3363;
inline constexpr int isOn = 3364;
inline constexpr int parameters = 3365;
inline constexpr int changed = 3366;
inline constexpr int pageOf = 3367;
inline constexpr int notPrinted = 3368;
inline constexpr int namedValue = 3369; ///< a name and what it is
} // namespace sheetText

} // namespace ko
