// The date that the environment sets for all that a setup holds (SOURCE_DATE_EPOCH).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "tools/Clock.h"

namespace console {

/// The seconds since 1970-01-01 UTC that `text` gives; nothing when it is empty. Raises BadCall for
/// what is no date.
[[nodiscard]] std::optional<std::int64_t> SourceDate(const std::string& text);

/// The clock that stands at the date; the system's without one.
[[nodiscard]] std::unique_ptr<tools::Clock> ClockAt(std::optional<std::int64_t> date);

}  // namespace console
