#include "console/TextReport.h"

#include <array>
#include <cmath>
#include <iomanip>
#include <ostream>
#include <sstream>

#include "tools/Text.h"

namespace console {

namespace {

// ECMA-48 control functions: back to the line's begin, erase to its end.
constexpr const char* kEraseLine = "\r\x1B[K";

std::string TimeLeft(const tools::Progress& progress, double seconds) {
  if (progress.bytesDone == 0 || progress.bytesTotal < progress.bytesDone) return {};
  const double left = seconds * static_cast<double>(progress.bytesTotal - progress.bytesDone) /
                      static_cast<double>(progress.bytesDone);
  return ", noch " + DecimalText(std::ceil(left), 0) + " s";
}

/// "13.000"
std::string GroupedText(std::uint64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ".");
  return text;
}

/// What the earlier setup spared this build; nothing when that is nothing.
std::string TakenOverLine(const tools::ArchiveTotals& stored) {
  if (stored.bytesTakenOver == 0) return {};
  return "  Archiv:     " + GroupedText(stored.filesTakenOver) + " von " +
         GroupedText(stored.files) + " Dateien unverändert übernommen (" +
         ByteText(stored.bytesTakenOver) + ")\n";
}

}  // namespace

TextReport::TextReport(Streams streams, InterruptTest interrupted, bool quiet)
    : Report(streams, interrupted), quiet_(quiet) {}

void TextReport::OnMessage(const engine::BuildMessage& message) {
  ClearProgress();
  Errors() << tools::EscapeControlCharacters(MessageLine(message)) << std::endl;
}

void TextReport::Failure(const std::string& text) {
  ClearProgress();
  Errors() << "packwright-build: " << tools::EscapeControlCharacters(text) << std::endl;
}

void TextReport::CheckEnd(std::size_t findings) {
  if (quiet_) return;
  if (findings == 0) {
    Output() << "Keine Beanstandungen.\n";
  } else {
    Output() << findings << (findings == 1 ? " Beanstandung.\n" : " Beanstandungen.\n");
  }
}

void TextReport::ProofEnd(const setup::ProofResult& result) {
  ClearProgress();
  if (!quiet_ && result.findings.empty()) Output() << ProofText(result) << '\n';
}

void TextReport::Listing(const model::ModProject& project) {
  const auto shown = [](const std::string& text) { return tools::EscapeControlCharacters(text); };
  Output() << shown(project.ProductTitle()) << '\n';
  for (const std::int32_t version : project.VersionSlots()) {
    Output() << "  " << shown(project.VersionString(version)) << '\n';
    ForEachComponent(project, version, [&](std::int32_t slot, const std::string& title) {
      Output() << "    " << slot << "  " << shown(title) << '\n';
    });
  }
}

void TextReport::Summary(const engine::BuildSummary& summary) {
  ClearProgress();
  if (quiet_) return;
  Output() << "Setup erstellt: " << tools::EscapeControlCharacters(summary.outputFolder) << '\n'
           << "  Dateien:    " << summary.stored.files << '\n'
           << "  Eingang:    " << ByteText(summary.stored.bytesIn) << '\n'
           << "  Ausgang:    " << ByteText(summary.stored.bytesOut) << " ("
           << DecimalText(100 * Ratio(summary.stored), 1) << " %)\n"
           << TakenOverLine(summary.stored) << "  Zeit:       " << DecimalText(SecondsSoFar(), 1)
           << " s\n"
           << "  Warnungen:  " << summary.warnings << '\n'
           << "  Fehler:     " << summary.errors << '\n';
}

void TextReport::OnProgress(const tools::Progress& progress) {
  if (quiet_ || !ErrorsAreTerminal() || progress.filesTotal == 0) return;
  const double seconds = SecondsSoFar();
  const auto rate = static_cast<std::uint64_t>(static_cast<double>(progress.bytesDone) / seconds);
  Errors() << kEraseLine << progress.filesDone << " von " << progress.filesTotal << " Dateien, "
           << ByteText(progress.bytesDone) << " von " << ByteText(progress.bytesTotal) << ", "
           << ByteText(rate) << "/s" << TimeLeft(progress, seconds) << std::flush;
  progressShown_ = true;
}

void TextReport::ClearProgress() {
  if (progressShown_) Errors() << kEraseLine;
  progressShown_ = false;
}

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

std::string ProofText(const setup::ProofResult& result) {
  return "Bewiesen: " + std::to_string(result.files) + " Dateien, " + ByteText(result.bytes) +
         " kommen ganz und unverändert an, und sonst nichts.";
}

std::string MessageLine(const engine::BuildMessage& message) {
  std::string line = message.severity == engine::Severity::Error ? "Fehler: " : "Warnung: ";
  line += message.text;
  if (!message.detail.empty()) line += " (" + message.detail + ")";
  if (message.component == 0) return line;
  line +=
      " [Komponente " + std::to_string(message.component) + " \"" + message.componentTitle + "\"";
  if (message.entry != 0) line += ", Eintrag " + std::to_string(message.entry);
  return line + "]";
}

}  // namespace console
