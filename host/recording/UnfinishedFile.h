#pragma once

#include <string>

namespace ko {

/// How a recording ended, as its file says it.
namespace recordedState {
inline constexpr const char* recording = "recording";
inline constexpr const char* complete = "complete";
inline constexpr const char* stopped = "stopped";
inline constexpr const char* failed = "failed";
inline constexpr std::size_t size = 16; ///< bytes in the file
} // namespace recordedState

/// Makes a file that was not closed readable by every program. Returns false if it was closed or is being written.
/// Fails with an `InputError`.
bool clearUnfinished(const std::string& file);

/// Closes a file whose recording could not be closed: makes it readable and sets how and when the recording ended.
/// Fails with an `InputError`.
void endUnfinished(const std::string& file, const std::string& state, const std::string& stop);

/// Returns when the file's content and its name are on the disk. Fails with an `InputError`.
void synchronize(const std::string& file);

} // namespace ko
