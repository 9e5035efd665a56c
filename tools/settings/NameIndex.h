// Where names stand in a text, found by the names' hashes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <string_view>
#include <vector>

#include "tools/Text.h"

namespace tools {

/// A set of names ignoring ASCII case. The names themselves stay in their text: a file of nothing
/// but tiny names must not take many times its size, so that a name costs five to fourteen bytes.
/// For the functions that take `nameAt`: nameAt(place) gives the name at a place that was added.
class NameIndex {
 public:
  /// The place of a name.
  template <typename NameAt>
  [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view name, NameAt nameAt) const {
    if (count_ == 0) return std::nullopt;
    const std::size_t slot = SlotOf(name, Hash(name), nameAt);
    if (marks_[slot] == 0) return std::nullopt;
    return places_[slot];
  }

  /// Adds a name, unless it is there: returns false then.
  template <typename NameAt>
  bool Add(std::string_view name, std::uint32_t place, NameAt nameAt) {
    if (count_ >= marks_.size() - marks_.size() / 4) Grow(nameAt);
    std::uint32_t hash = Hash(name);
    std::size_t slot = SlotOf(name, hash, nameAt);
    if (marks_[slot] != 0) return false;
    if (secret_ == 0 && IsFar(slot, hash)) {
      // Somebody has chosen names whose hashes are equal: these cannot be known beforehand.
      constexpr std::uint32_t kSmallest = 0x10000;
      secret_ = kSmallest + std::random_device()() % (kPrime - kSmallest);
      Rebuild(marks_.size(), nameAt);
      hash = Hash(name);
      slot = SlotOf(name, hash, nameAt);
    }
    Take(slot, hash, place);
    ++count_;
    return true;
  }

 private:
  /// A hash of the lower-case bytes, its bits mixed so that each part of it tells names apart.
  [[nodiscard]] std::uint32_t Hash(std::string_view name) const {
    std::uint32_t hash = secret_ == 0 ? QuickHash(name) : SecretHash(name);
    hash = (hash ^ (hash >> 15U)) * 0x85EBCA6BU;
    return hash ^ (hash >> 13U);
  }

  /// FNV-1a (http://www.isthe.com/chongo/tech/comp/fnv/).
  static std::uint32_t QuickHash(std::string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char c : name) {
      hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 16777619U;
    }
    return hash;
  }

  /// The name as a polynomial at a place that nobody knows, modulo a prime.
  [[nodiscard]] std::uint32_t SecretHash(std::string_view name) const {
    std::uint64_t hash = 1;
    for (const char c : name) {
      hash = (hash * secret_ + static_cast<unsigned char>(LowerAscii(c))) % kPrime;
    }
    return static_cast<std::uint32_t>(hash);
  }

  /// True for a slot that is much farther behind its hash's than any is by chance.
  [[nodiscard]] bool IsFar(std::size_t slot, std::uint32_t hash) const {
    constexpr std::size_t kFar = 256;
    return ((slot - hash) & (marks_.size() - 1)) > kFar;
  }

  /// What a taken slot is marked with; a free one has 0.
  static std::uint8_t MarkOf(std::uint32_t hash) {
    return static_cast<std::uint8_t>((hash >> 24U) | 1U);
  }

  /// The slot of the name, or the free one where it belongs. There is always a free one.
  template <typename NameAt>
  [[nodiscard]] std::size_t SlotOf(std::string_view name, std::uint32_t hash, NameAt nameAt) const {
    const std::size_t last = marks_.size() - 1;
    const std::uint8_t mark = MarkOf(hash);
    std::size_t slot = hash & last;
    while (marks_[slot] != 0 &&
           (marks_[slot] != mark || !EqualIgnoringAsciiCase(nameAt(places_[slot]), name))) {
      slot = (slot + 1) & last;
    }
    return slot;
  }

  void Take(std::size_t slot, std::uint32_t hash, std::uint32_t place) {
    marks_[slot] = MarkOf(hash);
    places_[slot] = place;
  }

  template <typename NameAt>
  void Grow(NameAt nameAt) {
    constexpr std::size_t kFewest = 8;
    Rebuild(std::max(kFewest, 2 * marks_.size()), nameAt);
  }

  template <typename NameAt>
  void Rebuild(std::size_t size, NameAt nameAt) {
    std::vector<std::uint32_t> places;
    places.reserve(count_);
    for (std::size_t i = 0; i < marks_.size(); ++i) {
      if (marks_[i] != 0) places.push_back(places_[i]);
    }
    // One after the other as they stand in the text: reading that here and there takes far longer.
    std::sort(places.begin(), places.end());
    marks_ = std::vector<std::uint8_t>();
    places_ = std::vector<std::uint32_t>();
    marks_.resize(size);
    places_.resize(size);
    for (const std::uint32_t place : places) {
      const std::uint32_t hash = Hash(nameAt(place));
      std::size_t slot = hash & (size - 1);
      while (marks_[slot] != 0) slot = (slot + 1) & (size - 1);
      Take(slot, hash, place);
    }
  }

  static constexpr std::uint32_t kPrime = 0x7FFFFFFF;

  // Slots, a power of two of them: a name stands in the one of its hash or in one that follows.
  std::vector<std::uint8_t> marks_;
  std::vector<std::uint32_t> places_;
  std::size_t count_ = 0;
  std::uint32_t secret_ = 0;  ///< 0 while the quick hash does
};

}  // namespace tools
