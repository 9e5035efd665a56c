// The folders that the runtime knows by name. The same table as the model's, held a second time so
// that reading a setup shares nothing with writing it.
#pragma once

#include <cstdint>
#include <string_view>

namespace setup {

inline constexpr std::int32_t kCustomFolder = 2004;  ///< the target subfolder is the whole path
inline constexpr std::string_view kTemporaryFolder = "TempPath";
inline constexpr std::string_view kSetupFolder = "SrcPath";  ///< not a target

/// True when files can be installed to %name%.
[[nodiscard]] bool IsFolderName(std::string_view name);

/// The name of a target folder by its number in a product, without percent signs; empty for an
/// unknown number.
[[nodiscard]] std::string_view FolderName(std::int32_t number);

}  // namespace setup
