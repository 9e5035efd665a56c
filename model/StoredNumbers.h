// Numbers from settings files. Anybody can edit those: an error says which file and key to look at.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "model/SettingNames.h"

namespace model {

/// Where a setting is stored.
struct SettingPlace {
  SettingPlace(std::string_view filePath, std::string_view inSection, std::string_view ofKey)
      : path(filePath), section(inSection), key(ofKey) {}
  SettingPlace(std::string_view filePath, const SettingName& name)
      : SettingPlace(filePath, name.section, name.key) {}

  std::string_view path;
  std::string_view section;
  std::string_view key;
};

/// The number that `text` stands for, by the rules of tools::ToInt16 and ToInt32. Raises
/// tools::Error naming the place when it does not fit.
[[nodiscard]] std::int16_t StoredInt16(std::string_view text, const SettingPlace& place);
[[nodiscard]] std::int32_t StoredInt32(std::string_view text, const SettingPlace& place);

/// A count from its stored text. Raises tools::Error naming the place for a negative number or one
/// of over 31 bits.
[[nodiscard]] std::int32_t StoredCount(const std::string& text, const SettingPlace& place);

}  // namespace model
