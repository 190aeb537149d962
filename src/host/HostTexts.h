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
inline constexpr int recentFiles = 3130;
inline constexpr int clearRecent = 3131;
inline constexpr int save = 3132;
inline constexpr int saveAs = 3133;
inline constexpr int printPreview = 3134;
inline constexpr int saveTitle = 3135;
inline constexpr int notSaved = 3136;
inline constexpr int keepChanges = 3137;
inline constexpr int changesGetLost = 3138;
inline constexpr int instruments = 3139;
inline constexpr int driverLog = 3140;
inline constexpr int reportsEntry = 3141;
inline constexpr int instrument = 3142;
inline constexpr int value = 3143;
inline constexpr int timebase = 3144;
inline constexpr int samplePeriod = 3145;
inline constexpr int blockSize = 3146;
inline constexpr int scanPeriod = 3147;
inline constexpr int startMode = 3148;
inline constexpr int startTime = 3149;
inline constexpr int stopMode = 3150;
inline constexpr int duration = 3151;
inline constexpr int startImmediately = 3152;
inline constexpr int startAtTime = 3153;
inline constexpr int startOnTrigger = 3154;
inline constexpr int stopAfterDuration = 3155;
inline constexpr int stopAtTime = 3156;
inline constexpr int triggerLines = 3157;
inline constexpr int startMasterRank = 3158;
inline constexpr int startLine = 3159;
inline constexpr int startInput = 3160;
inline constexpr int syncMasterRank = 3161;
inline constexpr int syncLine = 3162;
inline constexpr int syncInput = 3163;
inline constexpr int triggerSource = 3164;
inline constexpr int seconds = 3165;
inline constexpr int yes = 3166;
inline constexpr int no = 3167;
inline constexpr int failsAt = 3168;
inline constexpr int faults = 3169;
inline constexpr int faultsHint = 3170;
inline constexpr int handOver = 3171;
inline constexpr int handOverHint = 3172;
inline constexpr int faultsOf = 3173;
inline constexpr int failingOperations = 3174;
inline constexpr int healAll = 3175;
inline constexpr int logTime = 3176;
inline constexpr int logInstrument = 3177;
inline constexpr int logOperation = 3178;
inline constexpr int logArguments = 3179;
inline constexpr int logValue = 3180;
inline constexpr int logResult = 3181;
inline constexpr int logKept = 3182;
inline constexpr int logFailed = 3183;
inline constexpr int copyLog = 3184;
inline constexpr int clearLog = 3185;
inline constexpr int noRecentFiles = 3186;
inline constexpr int languageCode = 3220; ///< the folder of the help pages
inline constexpr int back = 3221;
inline constexpr int forward = 3222;
inline constexpr int closeHelp = 3223;
inline constexpr int helpMissing = 3224;
} // namespace hostText

} // namespace ko
