#include "console/Call.h"

#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "console/Platform.h"
#include "tools/Clock.h"
#include "tools/Process.h"
#include "tools/Text.h"
#include "tools/files/Files.h"

namespace console {

void OpenProduct(model::ModProject& project, const std::string& path) {
  project.SetProductPath(path);
  if (!tools::FileExists(path)) throw BadCall{"Die Produktdatei wurde nicht gefunden: " + path};
  if (!project.HasKnownFormat(path)) {
    throw BadCall{"Die Produktdatei ist nicht lesbar oder besitzt ein ungültiges Format: " + path};
  }
}

model::VersionSlot FindVersion(const model::ModProject& project, const std::string& wanted) {
  std::string known;
  for (const model::VersionSlot version : project.VersionSlots()) {
    const std::string text = project.VersionString(version);
    if (tools::EqualIgnoringCase(tools::TrimBlanks(text), tools::TrimBlanks(wanted))) {
      return version;
    }
    known += (known.empty() ? "" : ", ") + text;
  }
  throw BadCall{
      "Das Produkt hat keine Version " + wanted +
      (known.empty() ? std::string(" (keine vorhanden)") : " (vorhanden: " + known + ")")};
}

// See https://reproducible-builds.org/specs/source-date-epoch/.
std::optional<std::chrono::sys_seconds> SourceDate(const std::string& text) {
  if (text.empty()) return std::nullopt;
  std::int64_t seconds = -1;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, seconds);
  const std::chrono::sys_seconds date{std::chrono::seconds{seconds}};
  if (result.ec == std::errc{} && result.ptr == end && seconds >= 0 &&
      date <= tools::EpochClock::kLast) {
    return date;
  }
  throw BadCall{"SOURCE_DATE_EPOCH ist keine Anzahl von Sekunden: " + text};
}

std::unique_ptr<tools::Clock> ClockAt(std::optional<std::chrono::sys_seconds> date) {
  if (date) return std::make_unique<tools::EpochClock>(*date);
  return std::make_unique<tools::SystemClock>();
}

namespace {

ExitCode EndOutput(const Streams& streams, const char* name, ExitCode code) {
  streams.output.flush();
  streams.errors.flush();
  if (streams.output && streams.errors) return code;
  streams.errors << name << ": Die Ausgabe kann nicht geschrieben werden." << std::endl;
  return ExitCode::Stopped;
}

}  // namespace

int RunMain(int argc, char** argv, const char* name,
            ExitCode (*run)(const std::vector<std::string>&, const Surroundings&)) {
  try {
    tools::PrepareProcess();
    WatchForInterrupt();
    KeepTimeZone();
    tools::SystemDisk disk;
    const char* const date = std::getenv("SOURCE_DATE_EPOCH");
    const Surroundings surroundings{
        .streams = {std::cout, std::cerr, ErrorsGoToTerminal(), OutputGoesToTerminal()},
        .workingFolder = WorkingFolder(),
        .programFolder = ProgramFolder(),
        .disk = disk,
        .interrupted = WasInterrupted,
        .sourceDate = date != nullptr ? date : ""};
    const ExitCode code = run(ProgramArguments(argc, argv), surroundings);
    return static_cast<int>(EndOutput(surroundings.streams, name, code));
  } catch (const std::exception& error) {
    std::cerr << name << ": " << error.what() << '\n';
    return static_cast<int>(ExitCode::Stopped);
  }
}

}  // namespace console
