#include "console/TextReport.h"

#include <cmath>
#include <ostream>

#include "tools/Text.h"

namespace console {

namespace {

std::string TimeLeft(const tools::Progress& progress, std::chrono::duration<double> time) {
  if (progress.bytesDone == 0 || progress.bytesTotal < progress.bytesDone) return {};
  const auto left = time * static_cast<double>(progress.bytesTotal - progress.bytesDone) /
                    static_cast<double>(progress.bytesDone);
  return ", noch " + DecimalText(std::ceil(left.count()), 0) + " s";
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

void TextReport::OnMessage(const engine::BuildMessage& message) {
  progressLine_.Clear();
  Errors() << tools::EscapeControlCharacters(MessageLine(message)) << std::endl;
}

void TextReport::Failure(const std::string& text) {
  progressLine_.Clear();
  Errors() << "packwright-build: " << tools::EscapeControlCharacters(text) << std::endl;
}

void TextReport::CheckEnd(std::size_t findings) {
  if (Quiet()) return;
  Output() << (findings == 0 ? "Keine Beanstandungen." : FindingsText(findings)) << '\n';
}

void TextReport::ProofEnd(const setup::ProofResult& result) {
  progressLine_.Clear();
  if (!Quiet() && result.findings.empty()) Output() << ProofText(result) << '\n';
}

void TextReport::Listing(const model::ModProject& project) {
  const auto shown = [](const std::string& text) { return tools::EscapeControlCharacters(text); };
  Output() << shown(project.ProductTitle()) << '\n';
  for (const model::VersionSlot version : project.VersionSlots()) {
    Output() << "  " << shown(project.VersionString(version)) << '\n';
    ForEachComponent(project, version, [&](model::ComponentSlot slot, const std::string& title) {
      Output() << "    " << slot << "  " << shown(title) << '\n';
    });
  }
}

void TextReport::Summary(const engine::BuildSummary& summary) {
  progressLine_.Clear();
  if (Quiet()) return;
  Output() << "Setup erstellt: " << tools::EscapeControlCharacters(summary.outputFolder) << '\n'
           << "  Dateien:    " << summary.stored.files << '\n'
           << "  Eingang:    " << ByteText(summary.stored.bytesIn) << '\n'
           << "  Ausgang:    " << ByteText(summary.stored.bytesOut) << " ("
           << DecimalText(100 * Ratio(summary.stored), 1) << " %)\n"
           << TakenOverLine(summary.stored)
           << "  Zeit:       " << DecimalText(TimeSoFar().count(), 1) << " s\n"
           << "  Warnungen:  " << summary.warnings << '\n'
           << "  Fehler:     " << summary.errors << '\n';
}

void TextReport::OnProgress(const tools::Progress& progress) {
  if (Quiet() || !GetStreams().errorsAreTerminal) return;
  if (progress.filesTotal == 0) {
    if (progress.filesDone == 0) return;
    progressLine_.Show("Dateien werden gesucht: " + GroupedText(progress.filesDone) + ", " +
                       ByteText(progress.bytesDone));
    return;
  }
  const std::chrono::duration<double> time = TimeSoFar();
  const auto rate =
      static_cast<std::uint64_t>(static_cast<double>(progress.bytesDone) / time.count());
  progressLine_.Show(ProgressText(progress) + ", " + ByteText(rate) + "/s" +
                     TimeLeft(progress, time));
}

std::string MessageLine(const engine::BuildMessage& message) {
  std::string line = message.severity == engine::Severity::Error ? "Fehler: " : "Warnung: ";
  line += message.text;
  if (!message.detail.empty()) line += " (" + message.detail + ")";
  if (message.component == 0) return line;
  return line + OriginText(message.component, message.componentTitle, message.entry);
}

}  // namespace console
