#include <cerrno>

#include "tools/Error.h"

namespace tools {

std::error_code LastSystemError() { return {errno, std::system_category()}; }

bool IsDiskFull(std::error_code cause) {
  return cause == std::errc::no_space_on_device ||
         cause == std::error_code(EDQUOT, std::system_category());
}

}  // namespace tools
