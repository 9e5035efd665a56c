// The parts of paths in an installation script: they use "\" on every machine.
#pragma once

#include <string_view>

namespace engine {

/// Everything after the last "\".
[[nodiscard]] constexpr std::string_view ScriptFileName(std::string_view path) {
  return path.substr(path.find_last_of('\\') + 1);
}

/// What follows the last "." of the file name; empty when there is none.
[[nodiscard]] constexpr std::string_view ScriptExtension(std::string_view path) {
  const std::string_view name = ScriptFileName(path);
  const std::size_t dot = name.find_last_of('.');
  return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

}  // namespace engine
