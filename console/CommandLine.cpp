#include "console/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>

#include "tools/Versions.h"

namespace console {

void LabelInGerman(CLI::App& app, const std::string& footer) {
  const auto formatter = std::make_shared<CLI::Formatter>();
  formatter->label("Usage", "Aufruf");
  formatter->label("OPTIONS", "OPTIONEN");
  formatter->label("SUBCOMMAND", "BEFEHL");
  formatter->label("Positionals", "Argumente");
  formatter->label("Options", "Optionen");
  formatter->label("Subcommands", "Befehle");
  formatter->label("TEXT", "");
  formatter->label("REQUIRED", "");
  formatter->label("Excludes", "nicht mit");
  formatter->column_width(24);
  app.formatter(formatter);
  for (CLI::Option* const option : app.get_options()) {
    if (option->get_positional()) continue;
    option->group("Optionen");
    // A flag takes no value: "--zip=false" is a bad call.
    if (option->get_expected_max() == 0) option->disable_flag_override();
  }
  app.footer(footer);
}

std::string GermanText(const CLI::ParseError& error) {
  const std::string detail = error.what();
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    // The library lists the arguments behind the last colon.
    return "Unbekanntes Argument:" + detail.substr(std::min(detail.size(), detail.rfind(':') + 1));
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
    return "Einer Option fehlt ihr Wert: " + detail.substr(0, detail.find(':'));
  }
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    return "Optionen schließen einander aus: " + detail;
  }
  if (dynamic_cast<const CLI::ValidationError*>(&error) != nullptr) {
    return "Unbekannter Wert einer Option (möglich sind): " + detail;
  }
  return "Ungültiger Aufruf: " + detail;
}

namespace {

constexpr const char* kDescription =
    "Erstellt aus einer Version eines Produkts ein Setup, ohne Fenster und ohne Rückfragen.";

constexpr const char* kExitCodes =
    "Rückgabewert:\n"
    "  0  ohne Fehler erstellt\n"
    "  1  erstellt, mit Fehlern im Protokoll (--check, --prove: Beanstandungen)\n"
    "  2  falscher Aufruf, Produkt nicht gefunden, Format oder Version unbekannt\n"
    "  3  abgelehnt oder abgebrochen (Einstellungen nicht lesbar, Ausgabeordner ungültig,\n"
    "     nicht leer oder von einem anderen Lauf belegt, Datenträger voll)\n";

engine::Compression CompressionOf(const std::string& name) {
  if (const auto compression = engine::CompressionNamed(name)) return *compression;
  throw CLI::ValidationError("--compression", "fast, normal, small");
}

void DefineOptions(CLI::App& app, CommandLine& line, bool& zipWanted, bool& showVersion) {
  app.add_option("PRODUKT", line.product, "Produktdatei (*.product)");
  app.add_option("VERSION", line.version, "Version, zum Beispiel 1.0.0");
  app.add_option("--output", line.output,
                 "Ausgabeordner (sonst der der aktiven Konfiguration der Version)")
      ->type_name("ORDNER");
  auto* const zip =
      app.add_flag("--zip", zipWanted, "Dateien in einem .zip-Archiv verpacken (Vorgabe)");
  app.add_flag_callback(
         "--no-zip", [&line] { line.zip = false; }, "Dateien unverpackt als Ordnerbaum ablegen")
      ->excludes(zip);
  app.add_option_function<std::string>(
         "--compression",
         [&line](const std::string& name) { line.compression = CompressionOf(name); },
         "Wie das Archiv gepackt wird: fast, normal (Vorgabe) oder small")
      ->type_name("ART");
  app.add_flag("--fresh", line.fresh, "Alles neu packen, nichts aus dem früheren Setup übernehmen");
  auto* const threads = app.add_option("--threads", line.threads);
  app.add_flag("--wrapper", line.wrapper, "Ausführbares Installationsprogramm hinzufügen");
  app.add_flag("--runtime", line.runtime, "Installationsprogramm für Tessel hinzufügen");
  app.add_flag("--overwrite", line.overwrite, "Ein früheres Setup im Ausgabeordner ersetzen");
  app.add_flag("--force", line.force, "Auch andere Dateien im Ausgabeordner dafür löschen");
  app.add_flag("--check", line.check, "Nur prüfen und nichts schreiben");
  app.add_flag("--strict", line.strict, "Warnungen zählen im Rückgabewert wie Fehler");
  app.add_flag("--confine", line.confine,
               "Quellen, Verknüpfungen und Ausgabe außerhalb des Produktordners ablehnen");
  app.add_flag("--prove", line.prove, "Nach dem Erstellen beweisen, dass das Setup alles enthält");
  app.add_flag("--json", line.json, "Meldungen als JSON, ein Objekt je Zeile");
  app.add_flag("--quiet", line.quiet, "Kein Fortschritt und keine Zusammenfassung");
  app.add_flag("--list", line.list, "Versionen und Komponenten auflisten");
  app.add_flag("--version", showVersion, "Version dieses Programms anzeigen");
  app.set_help_flag("--help,-h", "Diese Hilfe anzeigen");
  LabelInGerman(app, kExitCodes);
  threads->group("");  // for measurements: not shown
}

/// What is wrong with a call whose options are known ones; empty when it can run.
std::string Objection(const CommandLine& line) {
  if (line.product.empty()) return "Die Produktdatei fehlt.";
  if (line.version.empty() && !line.list)
    return "Die Version fehlt (--list zeigt die vorhandenen).";
  if (line.list && line.check) return "--list und --check schließen einander aus.";
  if (line.prove && (line.list || line.check)) return "--prove gehört zum Erstellen eines Setups.";
  return {};
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& arguments,
                                            std::ostream& output, std::ostream& errors,
                                            ExitCode& exitCode) {
  CommandLine line;
  bool zipWanted = true;  // --zip asks for the default
  bool showVersion = false;
  CLI::App app(kDescription, "packwright-build");
  DefineOptions(app, line, zipWanted, showVersion);

  std::string objection;
  exitCode = ExitCode::Built;
  try {
    // The library takes the arguments from the last to the first.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    if (showVersion) {
      output << "packwright-build " << tools::FormatVersion(tools::ToolVersion()) << '\n';
      return std::nullopt;
    }
    objection = Objection(line);
  } catch (const CLI::CallForHelp&) {
    output << app.help();
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    objection = GermanText(error);
  }
  if (objection.empty()) return line;
  errors << "packwright-build: " << objection << "\nHilfe: packwright-build --help\n";
  exitCode = ExitCode::BadCall;
  return std::nullopt;
}

}  // namespace console
