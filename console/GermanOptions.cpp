#include "console/GermanOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

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
  return "Ungültiger Aufruf: " + detail;
}

}  // namespace console
