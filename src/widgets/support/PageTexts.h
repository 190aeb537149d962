#pragma once

namespace ko {

/// Texts that only the toolkit's views show, by their numbers in the string table.
namespace pageText {
inline constexpr int componentTitle = 1154;
inline constexpr int parameters = 1114;
inline constexpr int notApplicable = 1152;
inline constexpr int noInstruments = 3001;
inline constexpr int noInstrumentsReason = 3002;
inline constexpr int firstStep = 3003; ///< three steps, one number each
inline constexpr int startTimeButton = 3006;
inline constexpr int stopTimeButton = 3007;
inline constexpr int durationUnit = 3008;
inline constexpr int invalidEntry = 3009;
inline constexpr int channels = 3023;
inline constexpr int filterChannels = 3024;
inline constexpr int shareOfLimit = 3030;
inline constexpr int clock = 3031;
inline constexpr int notValid = 3040; ///< a word or two, beside the entry
inline constexpr int notAvailable = 3041;
inline constexpr int offers = 3243;
inline constexpr int offersOf = 3244;
} // namespace pageText

} // namespace ko
