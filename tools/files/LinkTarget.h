// Where a link leads.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// The file that a link at `path` leads to; `path` itself where there is no link. Replacing that
/// file keeps the link.
[[nodiscard]] std::string LinkTarget(std::string_view path);

/// Every place that a path depends on: each link on the way, in its own place, and at the end what
/// the path leads to, all with the folders above them resolved. Never raises an error: what cannot
/// be looked at counts as no link.
[[nodiscard]] std::vector<std::string> PlacesOnTheWay(std::string_view path);

}  // namespace tools
