#include "engine/Findings.h"

#include <algorithm>

namespace engine {

void Findings::Report(const std::string& text, const Place& place, Severity severity) {
  // Parts that fail for one reason (a file that nobody can read) follow each other closely.
  constexpr std::size_t kNear = 8;
  const std::size_t near = std::min(found_.size(), kNear);
  const bool isKnown = std::any_of(found_.end() - static_cast<std::ptrdiff_t>(near), found_.end(),
                                   [&](const BuildMessage& known) {
                                     return known.text == text &&
                                            known.component == place.component &&
                                            known.entry == place.entry;
                                   });
  if (isKnown) return;
  BuildMessage finding;
  finding.severity = severity;
  finding.text = text;
  finding.component = place.component;
  finding.componentTitle = place.componentTitle;
  finding.entry = place.entry;
  finding.entryId = place.entryId;
  found_.push_back(std::move(finding));
}

}  // namespace engine
