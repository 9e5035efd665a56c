#include "console/setup/TextSetupReport.h"

#include <ostream>

#include "console/ReportParts.h"
#include "tools/Text.h"

namespace console {

namespace {

const std::vector<std::string> kColumns{"Ziel",          "Größe",      "Vorhandene Datei",
                                        "Registrierung", "Bei Fehler", "Abgelegt als"};
const std::vector<Align> kAlignment{Align::Left, Align::Right, Align::Left,
                                    Align::Left, Align::Left,  Align::Left};

/// Nothing that a setup holds may steer the terminal.
std::string Shown(const std::string& text) { return tools::EscapeControlCharacters(text); }

std::string SizeText(const std::optional<std::uint64_t>& size, bool forPeople) {
  if (!size) return "fehlt";
  return forPeople ? ByteText(*size) : std::to_string(*size);
}

std::vector<std::string> RowOf(const setup::Setup& setup, const setup::PlannedFile& file,
                               bool forPeople) {
  return {file.target,
          SizeText(setup::SizeOf(setup, file), forPeople),
          setup::RuleText(file.rule),
          file.registersItself ? "ja" : "nein",
          file.vital ? "Abbruch" : "weiter",
          file.stored};
}

std::string RegistrationText(const setup::Plan& plan) {
  if (!plan.registration) return "keine";
  return plan.registration->key + ", \"" + plan.registration->title + "\", Typ " +
         plan.registration->type;
}

std::string PlaceText(const setup::Finding& finding) {
  std::string place = finding.file;
  if (finding.line != 0) place += ", Zeile " + std::to_string(finding.line);
  return place.empty() ? place : place + ": ";
}

}  // namespace

void TextSetupReport::Failure(const std::string& text) {
  progressLine_.Clear();
  Errors() << "packwright-setup: " << Shown(text) << std::endl;
}

void TextSetupReport::OnFinding(const setup::Finding& finding) {
  progressLine_.Clear();
  const std::string text = PlaceText(finding) + finding.text +
                           OriginText(finding.component, finding.componentTitle, finding.entry);
  Errors() << "Fehler: " << Shown(text) << std::endl;
}

void TextSetupReport::FindingsEnd(std::size_t count) {
  progressLine_.Clear();
  if (Quiet() || count == 0) return;
  Errors() << FindingsText(count) << '\n';
}

void TextSetupReport::Listing(const setup::Setup& setup) {
  if (!Quiet()) ListHead(setup);
  ListFiles(setup);
}

void TextSetupReport::ListHead(const setup::Setup& setup) {
  const setup::Plan& plan = setup.plan;
  std::uint64_t bytes = 0;
  for (const setup::PlannedFile& file : plan.files) bytes += SizeOf(setup, file).value_or(0);
  const std::vector<std::vector<std::string>> lines{
      {"Setup", NameOf(setup)},
      {"Erstellt",
       plan.head.year + " von " + plan.head.author + " mit Packwright " + plan.head.toolVersion},
      {"Rückfrage", plan.confirmation.empty() ? "keine" : plan.confirmation},
      {"Tessel-Datenbank", RegistrationText(plan)},
      {"Installationsordner", plan.folderProposal.empty() ? "keiner" : plan.folderProposal},
      {"Archiv", plan.archive.empty() ? "keines" : plan.archive},
      {"Dateien", std::to_string(plan.files.size()) + ", " + ByteText(bytes)},
  };
  Table table({Align::Left, Align::Left});
  for (const auto& line : lines) {
    if (GetStreams().outputIsTerminal) {
      table.Add(line);
    } else {
      WriteTabbed(Output(), line);
    }
  }
  table.WriteAligned(Output(), "");
  if (GetStreams().outputIsTerminal) return;
  std::vector<std::string> columns = kColumns;
  columns.insert(columns.begin(), "Komponente");
  WriteTabbed(Output(), columns);
}

void TextSetupReport::ListFiles(const setup::Setup& setup) {
  const setup::Plan& plan = setup.plan;
  const bool aligned = GetStreams().outputIsTerminal;
  Table table(kAlignment);
  for (std::size_t i = 0; i < plan.files.size(); ++i) {
    const setup::PlannedFile& file = plan.files[i];
    const std::string& component = plan.components[file.component];
    std::vector<std::string> row = RowOf(setup, file, aligned);
    if (!aligned) {
      row.insert(row.begin(), component);
      WriteTabbed(Output(), std::move(row));
      continue;
    }
    const bool first = i == 0 || plan.files[i - 1].component != file.component;
    if (first) {
      table.WriteAligned(Output(), "  ");
      Output() << "\nKomponente \"" << Shown(component) << "\"\n";
      if (!Quiet()) table.Add(kColumns);
    }
    table.Add(std::move(row));
  }
  table.WriteAligned(Output(), "  ");
}

void TextSetupReport::Installed(const setup::InstalledFile& file) {
  // Where the other files are is plain to see.
  if (!file.IsRedirected() || Quiet()) return;
  progressLine_.Clear();
  Output() << Shown(file.planned.target + " -> " + file.place) << '\n';
}

void TextSetupReport::InstallationEnd(const setup::InstallationTotals& totals,
                                      const std::string& folder) {
  progressLine_.Clear();
  if (Quiet()) return;
  Output() << "Zur Probe installiert: " << Shown(folder) << '\n'
           << "  Neu:        " << totals.created << '\n'
           << "  Ersetzt:    " << totals.replaced << '\n'
           << "  Geblieben:  " << totals.kept << '\n'
           << "  Bytes:      " << ByteText(totals.bytes) << '\n';
}

void TextSetupReport::ProofEnd(const setup::ProofResult& result) {
  progressLine_.Clear();
  if (Quiet() || !result.findings.empty()) return;
  Output() << ProofText(result) << '\n';
}

void TextSetupReport::Differences(const setup::SetupComparison& comparison) {
  progressLine_.Clear();
  for (const setup::Difference& difference : comparison.differences) {
    Output() << Shown(setup::DifferenceText(difference)) << '\n';
  }
  if (Quiet()) return;
  if (comparison.differences.empty()) Output() << "Kein Unterschied.\n";
  Output() << "Dateien: " << comparison.oldFiles << " -> " << comparison.newFiles << ", "
           << ByteText(comparison.oldBytes) << " -> " << ByteText(comparison.newBytes) << '\n';
}

void TextSetupReport::ShowProgress(const tools::Progress& progress) {
  if (GetStreams().errorsAreTerminal) progressLine_.Show(ProgressText(progress));
}

}  // namespace console
