// The error that this program raises for everything a user has to be told.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace tools {

/// Carries the description that the user reads: what failed, on which path, and why.
class Error : public std::runtime_error {
 public:
  explicit Error(const std::string& description, std::error_code cause = {});

  /// The system's reason, empty when the failure has none (a refused value, for example).
  [[nodiscard]] const std::error_code& Cause() const { return cause_; }

 private:
  std::error_code cause_;
};

/// The cause of a read that met changes by another program each time it was tried.
inline constexpr std::errc kChangesMeanwhile = std::errc::resource_unavailable_try_again;

/// The German text of a system error; causes without a translation keep the system's own text.
[[nodiscard]] std::string SystemErrorText(std::error_code cause);

/// An error reading "WHAT: PATH (CAUSE)", for example
/// "Die Datei kann nicht geschrieben werden: /a/b.product (Zugriff verweigert)".
[[nodiscard]] Error PathError(std::string_view what, std::string_view path, std::error_code cause);

/// The calling thread's last system error: errno, or GetLastError() on Windows.
[[nodiscard]] std::error_code LastSystemError();

/// True when `cause` says that the disk or the user's quota is full.
[[nodiscard]] bool IsDiskFull(std::error_code cause);

}  // namespace tools
