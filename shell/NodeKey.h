// The nodes of the project tree: their tags and keys, and the editor pages of each kind.
//
//   tag "product"    key "product"
//   tag "version"    key "v" and the version slot
//   tag "component"  key "v", the version slot, "c" and the component slot
#pragma once

#include <string>
#include <string_view>

#include "model/Slots.h"

namespace shell {

inline constexpr std::string_view kProductTag = "product";
inline constexpr std::string_view kVersionTag = "version";
inline constexpr std::string_view kComponentTag = "component";

/// A node by what it stands for. A default one stands for no node.
struct Node {
  std::string tag;
  std::string key;

  bool operator==(const Node&) const = default;
};

[[nodiscard]] Node ProductNode();
[[nodiscard]] Node VersionNode(model::VersionSlot version);
[[nodiscard]] Node ComponentNode(model::VersionSlot version, model::ComponentSlot component);

/// The slots that a node's key holds, 0 where it holds none.
struct NodeSlots {
  model::VersionSlot version = 0;
  model::ComponentSlot component = 0;
};
[[nodiscard]] NodeSlots SlotsOf(const Node& node);

/// The class names of a node's editor pages, separated by ";", in tab order; empty for no node.
[[nodiscard]] std::string_view PageListOf(const Node& node);

}  // namespace shell
