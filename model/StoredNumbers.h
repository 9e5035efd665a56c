// Numbers, and texts of a bounded length, from settings files. Anybody can edit those: an error
// says which file and key to look at, and a count of two thousand million must not make a loop of
// so many steps.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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

/// A count from its stored text; blank text is 0. Raises tools::Error naming the place for text
/// that is no number, a negative number, or one of over 31 bits: what is counted must not vanish.
[[nodiscard]] std::int32_t StoredCount(const std::string& text, const SettingPlace& place);

/// In bytes; as long as the longest path of most systems. Builds and checks repeat texts of an
/// entry for each of its files, and titles in each message.
inline constexpr std::size_t kLongestText = 4096;
/// Raises tools::Error naming the place when a text is longer than that.
void RequireShortText(const std::string& text, const SettingPlace& place);

/// Up to this count it is cheap to ask for each slot in turn; above it the slots are looked up with
/// the functions below.
inline constexpr std::int32_t kCheapSlotCount = 10000;

/// The number in a name made of `word` (ignoring ASCII case) and a decimal number without leading
/// zeros, for example 7 for "Ver7"; 0 when `name` is no such name or the number has over 31 bits.
[[nodiscard]] std::int32_t SlotNumberOf(std::string_view name, std::string_view word);

/// The slots from 1 to `count`, ascending, that could have a key or a section named `word` and the
/// slot number, followed by `ending`, in the settings file with this text. Every slot that has one
/// is among them.
[[nodiscard]] std::vector<std::int32_t> SlotsNamedIn(std::string_view settingsText,
                                                     std::string_view word, std::int32_t count,
                                                     std::string_view ending = {});

/// `slots` ascending, each once, without those outside 1 to `count`.
template <typename Slot>
[[nodiscard]] std::vector<Slot> OrderedSlots(std::vector<Slot> slots, std::int32_t count) {
  std::erase_if(slots, [count](Slot slot) { return slot < 1 || slot > count; });
  std::sort(slots.begin(), slots.end());
  slots.erase(std::unique(slots.begin(), slots.end()), slots.end());
  return slots;
}

}  // namespace model
