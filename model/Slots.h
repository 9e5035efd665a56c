// The numbers that versions and components are known by.
#pragma once

#include <compare>
#include <cstdint>
#include <type_traits>

namespace model {

/// The slot number of a version or of a component, from 1; 0 for none. Converts from and to a
/// plain number, but never to a slot of the other kind: neither swapped arguments nor a comparison
/// of the two compiles.
template <typename Kind>
class Slot {
 public:
  constexpr Slot(std::int32_t number = 0) : number_(number) {}
  constexpr operator std::int32_t() const { return number_; }
  constexpr Slot& operator++() {
    ++number_;
    return *this;
  }

 private:
  std::int32_t number_;
};

// Without these, both sides of a comparison would become numbers.
template <typename One, typename Other>
concept OtherThan = !std::is_same_v<One, Other>;
template <typename One, OtherThan<One> Other>
bool operator==(Slot<One>, Slot<Other>) = delete;
template <typename One, OtherThan<One> Other>
std::strong_ordering operator<=>(Slot<One>, Slot<Other>) = delete;

using VersionSlot = Slot<struct VersionKind>;
using ComponentSlot = Slot<struct ComponentKind>;

template <typename One, typename Other>
concept Equals = requires(One one, Other other) {
  one == other;
};
template <typename One, typename Other>
concept Precedes = requires(One one, Other other) {
  one < other;
};
static_assert(!std::is_convertible_v<VersionSlot, ComponentSlot>);
static_assert(!Equals<VersionSlot, ComponentSlot> && !Precedes<VersionSlot, ComponentSlot>);
static_assert(Equals<VersionSlot, VersionSlot> && Precedes<VersionSlot, std::int32_t>);

}  // namespace model
