#include "engine/SourceCursor.h"

namespace engine {

std::string_view SourceCursor::Next() {
  while (source_ == SourcePaths::end()) {
    if (component_ == survey_->components.size()) return {};
    const SurveyedComponent& component = survey_->components[component_];
    if (entry_ == component.entries.size()) {
      ++component_;
      entry_ = 0;
    } else {
      source_ = component.entries[entry_++].Sources().begin();
    }
  }
  const std::string_view path = *source_;
  ++source_;
  return path;
}

}  // namespace engine
