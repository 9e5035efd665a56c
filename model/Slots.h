// The numbers that versions and components are known by.
#pragma once

#include <cstdint>
#include <type_traits>

namespace model {

/// The slot number of a version or of a component, from 1; 0 for none. Converts from and to a
/// plain number, but never to a slot of the other kind: swapped arguments do not compile.
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
using VersionSlot = Slot<struct VersionKind>;
using ComponentSlot = Slot<struct ComponentKind>;
static_assert(!std::is_convertible_v<VersionSlot, ComponentSlot>);

}  // namespace model
