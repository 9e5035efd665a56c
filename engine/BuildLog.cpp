#include "engine/BuildLog.h"

#include <limits>
#include <utility>

#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/Text.h"

namespace engine {

namespace {

void CountUp(std::int32_t& count) {
  if (count == std::numeric_limits<std::int32_t>::max()) {
    throw tools::Error("Das Protokoll enthält zu viele Meldungen.");
  }
  ++count;
}

}  // namespace

BuildLog::BuildLog(const tools::Clock& clock, BuildObserver& observer)
    : clock_(clock), observer_(observer) {}

void BuildLog::BeginBuildLog() {
  unwritten_.clear();
  file_.reset();
  errors_ = 0;
  warnings_ = 0;
  Append(tools::kLogHead, "");
  Append("Created: ", clock_.DateTimeText());
  Append("", "");
}

void BuildLog::WriteTo(tools::Disk& disk, const std::string& path) {
  file_ = std::make_unique<tools::ReplacementFile>(disk, path);
}

void BuildLog::EndBuildLog() {
  WriteOut();
  file_->Commit(tools::ReplacementFile::Durability::Cached);
  file_.reset();
}

void BuildLog::LogWarning(std::string_view text, const Place& place, std::string_view userText) {
  Append("Warning: ", text);
  CountUp(warnings_);
  BuildMessage message;
  message.severity = Severity::Warning;
  message.text = text;
  message.userText = userText;
  Tell(std::move(message), place);
}

void BuildLog::LogError(std::string_view text, const Place& place, std::string_view userText,
                        std::string_view detail) {
  Append("ERROR: ", text);
  CountUp(errors_);
  BuildMessage message;
  message.text = text;
  message.userText = userText;
  message.detail = detail;
  Tell(std::move(message), place);
}

void BuildLog::Append(std::string_view prefix, std::string_view text) {
  // A path that a line names may hold what would break the line.
  unwritten_.append(prefix).append(tools::EscapeControlCharacters(text)).append("\r\n");
  constexpr std::size_t kMostUnwritten = std::size_t{64} << 10U;
  if (file_ && unwritten_.size() >= kMostUnwritten) WriteOut();
}

void BuildLog::WriteOut() {
  file_->File().Write(unwritten_);
  unwritten_.clear();
}

void BuildLog::Tell(BuildMessage message, const Place& place) {
  message.component = place.component;
  message.componentTitle = place.componentTitle;
  message.entry = place.entry;
  message.entryId = place.entryId;
  observer_.OnMessage(message);
}

}  // namespace engine
