#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "tools/Process.h"

namespace tools {

void PrepareProcess() noexcept {
  int descriptor = 0;
  do {
    descriptor = ::open("/dev/null", O_RDWR);
  } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
  if (descriptor >= 0) ::close(descriptor);
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tools
