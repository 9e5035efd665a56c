#include "tools/Error.h"
#include "tools/WindowsApi.h"

namespace tools {

std::error_code LastSystemError() {
  return {static_cast<int>(GetLastError()), std::system_category()};
}

bool IsDiskFull(std::error_code cause) {
  return cause == std::errc::no_space_on_device ||
         cause == std::error_code(ERROR_HANDLE_DISK_FULL, std::system_category());
}

}  // namespace tools
