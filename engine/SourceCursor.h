// Goes through the sources of a survey one by one.
#pragma once

#include <cstddef>
#include <string_view>

#include "engine/Survey.h"

namespace engine {

class SourceCursor {
 public:
  /// `survey` must outlive the cursor and all paths that it gives.
  explicit SourceCursor(const Survey& survey) : survey_(&survey) {}

  /// The full paths in the order in which they are stored; an empty one behind the last.
  [[nodiscard]] std::string_view Next();

 private:
  const Survey* survey_;
  std::size_t component_ = 0;
  std::size_t entry_ = 0;  // the one whose sources come next
  SourcePaths::Iterator source_;
};

}  // namespace engine
