#include "console/ReportParts.h"

#include <array>
#include <iomanip>
#include <locale>
#include <nlohmann/json.hpp>
#include <ostream>
#include <sstream>

#include "tools/Text.h"

namespace console {

namespace {

// ECMA-48 control functions: back to the line's begin, erase to its end.
constexpr const char* kEraseLine = "\r\x1B[K";

}  // namespace

CallReport::CallReport(Streams streams, InterruptTest interrupted, bool quiet)
    : streams_(streams), interrupted_(interrupted), quiet_(quiet) {}

void CallReport::ThrowIfStopped() const {
  if (interrupted_()) throw tools::Stopped();
}

std::chrono::duration<double> CallReport::TimeSoFar() const { return clock_.SteadyNow() - begun_; }

std::string DecimalText(double number, int digits) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << std::fixed << std::setprecision(digits) << number;
  std::string result = text.str();
  const std::size_t point = result.find('.');
  if (point != std::string::npos) result[point] = ',';
  return result;
}

std::string ByteText(std::uint64_t bytes) {
  constexpr std::array<const char*, 5> kUnits{" Bytes", " kB", " MB", " GB", " TB"};
  std::size_t unit = 0;
  auto number = static_cast<double>(bytes);
  while (number >= 1000 && unit + 1 < kUnits.size()) {
    number /= 1000;
    ++unit;
  }
  return DecimalText(number, unit == 0 ? 0 : 1) + kUnits[unit];
}

std::string ProgressText(const tools::Progress& progress) {
  return std::to_string(progress.filesDone) + " von " + std::to_string(progress.filesTotal) +
         " Dateien, " + ByteText(progress.bytesDone) + " von " + ByteText(progress.bytesTotal);
}

std::string FindingsText(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " Beanstandung." : " Beanstandungen.");
}

std::string ProofText(const setup::ProofResult& result) {
  return "Bewiesen: " + std::to_string(result.files) + " Dateien, " + ByteText(result.bytes) +
         " kommen ganz und unverändert an, und sonst nichts.";
}

std::string OriginText(std::int32_t component, const std::string& title, std::int32_t entry) {
  if (title.empty() && component == 0) return {};
  std::string origin = " [Komponente ";
  if (component != 0) origin += std::to_string(component) + " ";
  origin += "\"" + title + "\"";
  if (entry != 0) origin += ", Eintrag " + std::to_string(entry);
  return origin + "]";
}

void ProgressLine::Show(const std::string& text) {
  errors_ << kEraseLine << text << std::flush;
  isShown_ = true;
}

void ProgressLine::Clear() {
  if (isShown_) errors_ << kEraseLine;
  isShown_ = false;
}

std::string JsonLine(const Json& object) {
  // The library leaves control characters beyond ASCII as they are; they stand in strings alone.
  return tools::EscapeControlCharacters(
      object.dump(-1, ' ', false, Json::error_handler_t::replace));
}

Json FailureEvent(const std::string& text) { return {{"event", "failure"}, {"text", text}}; }

Json ProgressEvent(const tools::Progress& progress) {
  return {{"event", "progress"},
          {"filesDone", progress.filesDone},
          {"filesTotal", progress.filesTotal},
          {"bytesDone", progress.bytesDone},
          {"bytesTotal", progress.bytesTotal}};
}

Json ProofEvent(const setup::ProofResult& result) {
  return {{"event", "proof"},
          {"proven", result.findings.empty()},
          {"files", result.files},
          {"bytes", result.bytes}};
}

}  // namespace console
