#pragma once

namespace ko {

/// The frame window's texts by their numbers in the string table.
namespace hostText {
inline constexpr int product = 3100;
inline constexpr int fileMenu = 3101;
inline constexpr int openSetup = 3102;
inline constexpr int print = 3103;
inline constexpr int quit = 3104;
inline constexpr int editMenu = 3105;
inline constexpr int cut = 3106;
inline constexpr int copy = 3107;
inline constexpr int paste = 3108;
inline constexpr int erase = 3109;
inline constexpr int viewMenu = 3110;
inline constexpr int readOnly = 3111;
inline constexpr int helpMenu = 3112;
inline constexpr int contents = 3113;
inline constexpr int about = 3114;
inline constexpr int openTitle = 3115;
inline constexpr int setupFiles = 3116;
inline constexpr int allFiles = 3117;
inline constexpr int notOpened = 3118;
inline constexpr int noSetup = 3119;
inline constexpr int reports = 3120;
inline constexpr int reportCount = 3121;
inline constexpr int aboutText = 3123;
inline constexpr int reportsHint = 3124;
inline constexpr int languageCode = 3220; ///< the folder of the help pages
inline constexpr int back = 3221;
inline constexpr int forward = 3222;
inline constexpr int closeHelp = 3223;
inline constexpr int helpMissing = 3224;
} // namespace hostText

} // namespace ko
