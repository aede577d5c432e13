// Killing programs while they write.

#ifndef SUPPORT_KILLS_H
#define SUPPORT_KILLS_H

#include <filesystem>
#include <functional>
#include <string>

#include <sys/types.h>

namespace support
{

/// Starts a process that takes a step over and over until it is killed, or ends with a failure when
/// the step returns false.
pid_t startRepeating(const std::function<bool()>& step);
/// Waits for the end of a process. @return whether a kill ended it
bool wasKilled(pid_t child);

/// Kills a process at some moment while it replaces a file, or makes it, over and over; many times.
/// Fails the test where the file is neither as before nor wholly new afterwards, where anything but
/// temporary files is left beside it, and where all kills came too early or too late to say
/// anything.
/// @param replace  makes the file's bytes those of `after`
void killWhileReplacing(const std::filesystem::path& file, const std::string& before,
                        const std::string& after, const std::function<bool()>& replace);

} // namespace support

#endif
