// Where a link leads.
#pragma once

#include <string>
#include <string_view>

namespace tools {

/// The file that a link at `path` leads to; `path` itself where there is no link. Replacing that
/// file keeps the link.
[[nodiscard]] std::string LinkTarget(std::string_view path);

}  // namespace tools
