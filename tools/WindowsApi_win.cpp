#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ratio>

#include "tools/WindowsApi.h"

namespace tools {

namespace {

// What FILETIME counts, from 1601-01-01 UTC.
using Steps = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
constexpr Steps kTo1970{116'444'736'000'000'000};

}  // namespace

std::wstring ToWide(std::string_view utf8) {
  if (utf8.empty()) return {};
  const int bytes = static_cast<int>(utf8.size());
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string FromWide(std::wstring_view wide) {
  if (wide.empty()) return {};
  const int units = static_cast<int>(wide.size());
  std::string utf8(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), units,
                                                                nullptr, 0, nullptr, nullptr)),
                   '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(), static_cast<int>(utf8.size()),
                      nullptr, nullptr);
  return utf8;
}

FILETIME ToSystemForm(FileTime time) {
  const auto since1970 = std::chrono::duration_cast<Steps>(time.time_since_epoch());
  ULARGE_INTEGER count{};
  count.QuadPart = static_cast<std::uint64_t>((since1970 + kTo1970).count());
  return {count.LowPart, count.HighPart};
}

FileTime FromSystemForm(const FILETIME& time) {
  ULARGE_INTEGER count{};
  count.LowPart = time.dwLowDateTime;
  count.HighPart = time.dwHighDateTime;
  constexpr auto kMost = std::chrono::duration_cast<Steps>(std::chrono::nanoseconds::max());
  const Steps since1601{std::max<std::int64_t>(static_cast<std::int64_t>(count.QuadPart), 0)};
  return FileTime{std::clamp(since1601 - kTo1970, -kMost, kMost)};
}

}  // namespace tools
