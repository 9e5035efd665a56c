#include "shell/NodeKey.h"

#include "tools/Numbers.h"

namespace shell {

namespace {

constexpr char kVersionLetter = 'v';
constexpr char kComponentLetter = 'c';

}  // namespace

Node ProductNode() { return {std::string(kProductTag), "product"}; }

Node VersionNode(model::VersionSlot version) {
  return {std::string(kVersionTag), kVersionLetter + std::to_string(version)};
}

Node ComponentNode(model::VersionSlot version, model::ComponentSlot component) {
  return {std::string(kComponentTag),
          kVersionLetter + std::to_string(version) + kComponentLetter + std::to_string(component)};
}

NodeSlots SlotsOf(const Node& node) {
  const std::string_view key = node.key;
  if (node.tag == kVersionTag) return {.version = tools::ToInt32(key.substr(1))};
  if (node.tag != kComponentTag) return {};
  const std::size_t letter = key.find(kComponentLetter);
  return {.version = tools::ToInt32(key.substr(1, letter - 1)),
          .component = tools::ToInt32(key.substr(letter + 1))};
}

std::string_view PageListOf(const Node& node) {
  if (node.tag == kProductTag) return "tabProductDetails";
  if (node.tag == kVersionTag) {
    return "tabVersionDetails;tabFeatures;tabSetupProcedure;tabBuildOptions;tabTesselRegistration";
  }
  if (node.tag == kComponentTag) return "tabFileList;tabRegistryEditor";
  return {};
}

}  // namespace shell
