#include "console/setup/SetupCommandLine.h"

#include <CLI/CLI.hpp>
#include <ostream>

#include "console/CommandLine.h"
#include "tools/Versions.h"

namespace console {

namespace {

using Command = SetupCommandLine::Command;

constexpr const char* kDescription =
    "Liest ein fertiges Setup, wie es die Laufzeit liest, und sagt, was es tut.";

constexpr const char* kExitCodes =
    "Rückgabewert:\n"
    "  0  keine Beanstandung\n"
    "  1  Beanstandungen gefunden; die Setups unterscheiden sich (compare)\n"
    "  2  falscher Aufruf, Setup nicht lesbar\n"
    "  3  abgelehnt oder abgebrochen\n";

CLI::App* AddCommand(CLI::App& app, SetupCommandLine& line, Command command, const char* name,
                     const char* description) {
  CLI::App* const sub = app.add_subcommand(name, description);
  sub->add_option("SETUP", line.setup, "Ausgabeordner oder Skript (*.install)")->required();
  sub->add_flag("--json", line.json, "Ausgabe als JSON, ein Objekt je Zeile");
  sub->add_flag("--quiet", line.quiet, "Nur Zeilen der Tabelle und Beanstandungen");
  sub->set_help_flag("--help,-h", "Diese Hilfe anzeigen");
  sub->final_callback([&line, command] { line.command = command; });
  sub->group("Befehle");
  return sub;
}

void DefineCommands(CLI::App& app, SetupCommandLine& line) {
  AddCommand(app, line, Command::List, "list", "Auflisten, was das Setup installieren würde");
  AddCommand(app, line, Command::Unpack, "unpack",
             "Das Setup zur Probe in einen Ordner installieren")
      ->add_option("--into", line.into, "Ordner der Probe: leer oder noch nicht da")
      ->type_name("ORDNER")
      ->required();
  CLI::App* const prove = AddCommand(app, line, Command::Prove, "prove",
                                     "Beweisen, dass das Setup die Version ganz enthält");
  prove->add_option("--product", line.product, "Produktdatei (*.product)")
      ->type_name("DATEI")
      ->required();
  prove->add_option("--version", line.version, "Version, zum Beispiel 1.0.0")
      ->type_name("VERSION")
      ->required();
  AddCommand(app, line, Command::Compare, "compare", "Sagen, was ein neues Setup anders macht")
      ->add_option("NEU", line.newSetup, "Das neue Setup; SETUP ist das alte")
      ->required();
  app.require_subcommand(0, 1);
  LabelInGerman(app, kExitCodes);
  for (CLI::App* const sub : app.get_subcommands({})) LabelInGerman(*sub, kExitCodes);
}

}  // namespace

std::optional<SetupCommandLine> ParseSetupCommandLine(const std::vector<std::string>& arguments,
                                                      std::ostream& output, std::ostream& errors,
                                                      ExitCode& exitCode) {
  SetupCommandLine line;
  bool showVersion = false;
  CLI::App app(kDescription, "packwright-setup");
  app.add_flag("--version", showVersion, "Version dieses Programms anzeigen");
  app.set_help_flag("--help,-h", "Diese Hilfe anzeigen");
  DefineCommands(app, line);

  std::string objection;
  exitCode = ExitCode::Built;
  try {
    // The library takes the arguments from the last to the first.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    if (showVersion) {
      output << "packwright-setup " << tools::FormatVersion(tools::ToolVersion()) << '\n';
      return std::nullopt;
    }
    if (!app.get_subcommands().empty()) return line;
    objection = "Der Befehl fehlt.";
  } catch (const CLI::CallForHelp&) {
    output << app.help();
    return std::nullopt;
  } catch (const CLI::RequiredError& error) {
    const std::string detail = error.what();  // "NAME is required"
    objection = "Ein Argument fehlt: " + detail.substr(0, detail.find(' '));
  } catch (const CLI::ParseError& error) {
    objection = GermanText(error);
  }
  errors << "packwright-setup: " << objection << "\nHilfe: packwright-setup --help\n";
  exitCode = ExitCode::BadCall;
  return std::nullopt;
}

}  // namespace console
