#include "model/RegistryKeys.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "model/SettingNames.h"
#include "model/StoredNumbers.h"
#include "tools/Text.h"

namespace model {

namespace {

constexpr std::string_view kSection = setting::kRegistryKeyCount.section;
constexpr std::string_view kKeys = setting::kRegistryKeyCount.key;
constexpr std::string_view kKey = "Key";
constexpr std::string_view kValues = "Values";
constexpr std::string_view kValue = "Val";
constexpr std::string_view kName = "Name";
constexpr std::string_view kSetting = "Setting";

std::string Numbered(std::string_view word, std::int32_t number, std::string_view ending = {}) {
  return std::string(word).append(std::to_string(number)).append(ending);
}

std::string SlotSection(std::int32_t slot) { return Numbered("RegKey", slot); }

}  // namespace

bool IsSameKey(std::string_view path, std::string_view otherPath) {
  return tools::EqualIgnoringCase(tools::TrimBlanks(path), tools::TrimBlanks(otherPath));
}

RegistryKeys::RegistryKeys(SettingReader read, SettingWriter write, Source source)
    : read_(std::move(read)), write_(std::move(write)), source_(std::move(source)) {}

std::vector<std::string> RegistryKeys::Paths() const {
  std::vector<std::string> paths;
  for (const std::int32_t slot : Slots()) {
    std::string path = PathIn(slot);
    if (!path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

std::vector<RegistryValue> RegistryKeys::ValuesOf(std::string_view path) const {
  std::vector<RegistryValue> values;
  for (const std::int32_t slot : SlotsOf(path)) AppendValues(slot, values);
  return values;
}

void RegistryKeys::Store(std::string_view path, const std::vector<RegistryValue>& values) {
  const std::vector<std::int32_t> slots = SlotsOf(path);
  const std::int32_t slot = slots.empty() ? FreeSlot() : slots.front();
  if (slots.empty()) {
    write_(kSection, Numbered(kKey, slot), path);
    write_(kSection, kKeys, std::to_string(slot));
  }
  const std::string section = SlotSection(slot);
  write_(section, kValues, std::to_string(values.size()));
  std::int32_t number = 0;
  for (const RegistryValue& value : values) {
    ++number;
    write_(section, Numbered(kValue, number, kName), value.name);
    write_(section, Numbered(kValue, number, kSetting), value.setting);
  }
}

void RegistryKeys::Free(std::string_view path) {
  for (const std::int32_t slot : SlotsOf(path)) write_(kSection, Numbered(kKey, slot), "");
}

std::int32_t RegistryKeys::Count(std::string_view section, std::string_view key) const {
  return StoredCount(read_(section, key, "0"), {source_.path(), section, key});
}

std::string RegistryKeys::PathIn(std::int32_t slot) const {
  return read_(kSection, Numbered(kKey, slot), "");
}

std::vector<std::int32_t> RegistryKeys::Numbers(std::string_view word, std::string_view ending,
                                                std::int32_t count) const {
  if (count > kCheapSlotCount) return SlotsNamedIn(source_.text(), word, count, ending);
  std::vector<std::int32_t> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 1);
  return numbers;
}

std::vector<std::int32_t> RegistryKeys::Slots() const {
  return Numbers(kKey, {}, Count(kSection, kKeys));
}

std::vector<std::int32_t> RegistryKeys::SlotsOf(std::string_view path) const {
  std::vector<std::int32_t> slots = Slots();
  std::erase_if(slots, [&](std::int32_t slot) { return !IsSameKey(PathIn(slot), path); });
  return slots;
}

std::int32_t RegistryKeys::FreeSlot() const {
  std::int32_t free = 1;
  for (const std::int32_t slot : Slots()) {
    // A slot that the file has no line for is free too.
    if (slot != free || tools::TrimBlanks(PathIn(slot)).empty()) break;
    ++free;
  }
  return free;
}

void RegistryKeys::AppendValues(std::int32_t slot, std::vector<RegistryValue>& values) const {
  const std::string section = SlotSection(slot);
  for (const std::int32_t number : Numbers(kValue, kName, Count(section, kValues))) {
    values.push_back(
        {std::string(tools::TrimBlanks(read_(section, Numbered(kValue, number, kName), ""))),
         read_(section, Numbered(kValue, number, kSetting), "")});
  }
}

RegistryPath ParseRegistryPath(std::string_view text, std::string_view topLevel) {
  text = tools::TrimBlanks(text);
  if (text.size() > topLevel.size() && text.starts_with(topLevel)) {
    text.remove_prefix(topLevel.size() + 1);
    // The rest of that one character, where it has several bytes.
    while (!text.empty() && (static_cast<unsigned char>(text.front()) & 0xC0U) == 0x80U) {
      text.remove_prefix(1);
    }
  }
  const std::size_t split = std::min(text.find('\\'), text.size());
  std::string_view subkey = text.substr(std::min(split + 1, text.size()));
  if (subkey.ends_with('\\')) subkey.remove_suffix(1);
  return {std::string(text), std::string(text.substr(0, split)), std::string(subkey)};
}

std::string JoinRegistryPath(std::string_view path, std::string_view name) {
  std::string joined(path);
  if (!joined.empty() && !joined.ends_with('\\')) joined += '\\';
  return joined.append(name);
}

std::string ParentRegistryPath(std::string_view path) {
  const std::size_t last = path.rfind('\\');
  return std::string(path.substr(0, last == std::string_view::npos ? 0 : last));
}

}  // namespace model
