#include "tools/NameIndex.h"

#include <bit>
#include <utility>

namespace tools {

void NameIndex::Reserve(std::size_t names) {
  constexpr std::size_t kFewest = 16;
  const std::size_t wanted = std::bit_ceil(names * 2 + kFewest);
  if (wanted <= slots_.size()) return;
  const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(wanted));
  mask_ = wanted - 1;
  for (const Slot& slot : old) {
    if (slot.position != kFree) Insert(slot);
  }
}

void NameIndex::Add(std::string_view name, std::uint32_t position) {
  Reserve(++used_);
  Insert({Hash(name), position});
}

void NameIndex::Insert(Slot slot) {
  std::size_t i = slot.hash & mask_;
  while (slots_[i].position != kFree) i = (i + 1) & mask_;
  slots_[i] = slot;
}

std::uint32_t NameIndex::Hash(std::string_view name) {
  // FNV-1a (http://www.isthe.com/chongo/tech/comp/fnv/) over the lower-case bytes; the high half
  // folded in, because the table takes the low bits.
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : name) {
    hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
  }
  return static_cast<std::uint32_t>(hash ^ (hash >> 32U));
}

}  // namespace tools
