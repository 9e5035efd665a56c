#include "tools/files/SteadyStatus_posix.h"

#include <time.h>

#include "tools/files/FileStamp_posix.h"

namespace tools {

namespace {

// More than a tick of the clock that the system stamps files with, and than one write mostly takes.
constexpr std::int64_t kQuiet = 20'000'000;

/// How long it takes until the file is quiet, in nanoseconds. Times further in the future say
/// nothing.
std::int64_t TimeToQuiet(const struct stat& status) {
  timespec now{};
  if (::clock_gettime(CLOCK_REALTIME, &now) != 0) return 0;
  const std::int64_t age = NanosecondsOf(now) - NanosecondsOf(status.st_mtim);
  return age < kQuiet && age > -kQuiet ? kQuiet - age : 0;
}

}  // namespace

bool SteadyStatus(int descriptor, struct stat& status) {
  if (::fstat(descriptor, &status) != 0) return false;
  const std::int64_t wait = TimeToQuiet(status);
  if (wait == 0) return true;
  const FileStamp before = StampFrom(status);
  const timespec pause{0, wait};
  ::nanosleep(&pause, nullptr);
  return ::fstat(descriptor, &status) == 0 && StampFrom(status) == before;
}

}  // namespace tools
