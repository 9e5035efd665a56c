// The support layer's own few numbered texts.
#pragma once

#include <cstdint>
#include <string>

namespace tools {

inline constexpr std::int32_t kTextError = 107;     ///< caption of error messages
inline constexpr std::int32_t kTextExisting = 108;  ///< a file that is there
inline constexpr std::int32_t kTextMissing = 109;   ///< a file that is not
inline constexpr std::int32_t kTextOk = 110;
inline constexpr std::int32_t kTextCancel = 111;
inline constexpr std::int32_t kTextWarning = 115;   ///< caption of warnings
inline constexpr std::int32_t kTextQuestion = 118;  ///< caption of questions

/// Between two lines of a message.
inline constexpr const char* kLineBreak = "\r\n";

/// The German text of that number; empty for any other number.
[[nodiscard]] std::string StandardText(std::int32_t number);

}  // namespace tools
