#include "tools/Error.h"

#include <array>
#include <utility>

namespace tools {

namespace {

// Causes that a user can act on, in the language of the user interface.
constexpr std::array<std::pair<std::errc, const char*>, 16> kCauses{{
    {std::errc::no_such_file_or_directory, "Datei oder Ordner nicht gefunden"},
    {std::errc::permission_denied, "Zugriff verweigert"},
    {std::errc::operation_not_permitted, "Vorgang nicht erlaubt"},
    {std::errc::no_space_on_device, "Kein Speicherplatz mehr auf dem Datenträger"},
    {std::errc::file_exists, "Der Name ist bereits vergeben"},
    {std::errc::not_a_directory, "Ein Teil des Pfades ist kein Ordner"},
    {std::errc::is_a_directory, "Der Pfad bezeichnet einen Ordner"},
    {std::errc::directory_not_empty, "Der Ordner ist nicht leer"},
    {std::errc::filename_too_long, "Der Name ist zu lang"},
    {std::errc::file_too_large, "Die Datei wird zu groß"},
    {std::errc::read_only_file_system, "Der Datenträger ist schreibgeschützt"},
    {std::errc::device_or_resource_busy, "Wird von einem anderen Programm verwendet"},
    {std::errc::too_many_files_open, "Zu viele geöffnete Dateien"},
    {std::errc::io_error, "Fehler beim Lesen oder Schreiben des Datenträgers"},
    {kChangesMeanwhile, "Die Datei ändert sich gerade"},
    {std::errc::invalid_argument, "Ungültiger Name oder Wert"},
}};

}  // namespace

Error::Error(const std::string& description, std::error_code cause)
    : std::runtime_error(description), cause_(cause) {}

std::string SystemErrorText(std::error_code cause) {
  for (const auto& [code, text] : kCauses) {
    if (cause == code) return text;
  }
  return cause.message();
}

Error PathError(std::string_view what, std::string_view path, std::error_code cause) {
  std::string description(what);
  description.append(": ").append(path);
  if (cause) description.append(" (").append(SystemErrorText(cause)).append(")");
  return Error(description, cause);
}

}  // namespace tools
