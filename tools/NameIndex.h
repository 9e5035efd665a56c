// Finds names by their position in a list, ignoring ASCII case. Private to SettingsFile.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tools {

[[nodiscard]] inline char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

[[nodiscard]] inline bool EqualIgnoringAsciiCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (a == b) return true;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (LowerAscii(a[i]) != LowerAscii(b[i])) return false;
  }
  return true;
}

/// Holds positions and the hashes of their names, not the names: a small table that stays in the
/// processor's cache where one of texts would not (open addressing with linear probing).
class NameIndex {
 public:
  /// Makes room for this many names.
  void Reserve(std::size_t names);
  /// True as long as nothing was reserved or added.
  [[nodiscard]] bool IsEmpty() const { return slots_.empty(); }

  /// The position of `name`; `nameAt(position)` gives the name at a position.
  template <typename NameAt>
  [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view name,
                                                  const NameAt& nameAt) const {
    if (slots_.empty()) return std::nullopt;
    const Slot& slot = slots_[SlotOf(name, Hash(name), nameAt)];
    return slot.position == kFree ? std::nullopt : std::optional(slot.position);
  }

  /// Adds a name that Find does not find yet.
  void Add(std::string_view name, std::uint32_t position);

  /// Adds a name for which Reserve made room, unless there is an equal one.
  template <typename NameAt>
  void AddIfNew(std::string_view name, std::uint32_t position, const NameAt& nameAt) {
    const std::uint32_t hash = Hash(name);
    Slot& slot = slots_[SlotOf(name, hash, nameAt)];
    if (slot.position != kFree) return;
    slot = {hash, position};
    ++used_;
  }

 private:
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;

  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t position = kFree;
  };

  [[nodiscard]] static std::uint32_t Hash(std::string_view name);
  void Insert(Slot slot);

  /// The slot that holds `name`, or the free one where it would go.
  template <typename NameAt>
  [[nodiscard]] std::size_t SlotOf(std::string_view name, std::uint32_t hash,
                                   const NameAt& nameAt) const {
    std::size_t i = hash & mask_;
    while (slots_[i].position != kFree &&
           (slots_[i].hash != hash || !EqualIgnoringAsciiCase(nameAt(slots_[i].position), name))) {
      i = (i + 1) & mask_;
    }
    return i;
  }

  std::vector<Slot> slots_;  ///< a power of two of them, at most half in use
  std::size_t mask_ = 0;
  std::size_t used_ = 0;
};

}  // namespace tools
