#include "setup/Setup.h"

#include <utility>

#include "setup/TargetPath.h"
#include "tools/Error.h"
#include "tools/SetupNames.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace setup {

namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} << 10U;

std::string ScriptOf(const std::string& path) {
  if (!tools::FolderExists(path)) {
    if (tools::FileExists(path)) return path;
    throw tools::Error("Das Setup wurde nicht gefunden: " + path);
  }
  const std::vector<std::string> scripts =
      tools::FindFiles(path, std::string("*") + tools::kScriptEnding, tools::Subfolders::Skip);
  if (scripts.empty()) {
    throw tools::Error("In diesem Ordner liegt kein Setup (keine Datei *.install): " + path);
  }
  if (scripts.size() > 1) {
    throw tools::Error("In diesem Ordner liegen mehrere Setups: " + scripts[0] + ", " + scripts[1]);
  }
  return scripts[0];
}

// The archive that the script unpacks. A script that unpacks nothing may have lost its statements:
// then it is the archive of the same name beside it, if there is one.
std::string ArchiveOf(const Setup& setup) {
  if (!setup.plan.archive.empty()) return tools::JoinPath(setup.folder, setup.plan.archive);
  const std::string name = tools::FileNamePart(setup.scriptPath);
  const std::string path =
      tools::JoinPath(setup.folder, name.substr(0, name.find_last_of('.')) + tools::kArchiveEnding);
  return tools::FileExists(path) ? path : std::string();
}

}  // namespace

Setup OpenSetup(const std::string& path) {
  Setup setup;
  setup.scriptPath = ScriptOf(path);
  setup.folder = tools::FolderOf(setup.scriptPath);
  ScriptReading reading = ReadScript(setup.scriptPath);
  setup.plan = std::move(reading.plan);
  setup.findings = std::move(reading.findings);
  setup.furtherFindings = reading.furtherFindings;
  const std::string archive = ArchiveOf(setup);
  if (!archive.empty()) setup.archive = std::make_unique<Archive>(archive);
  return setup;
}

std::string TreePath(const Setup& setup, const PlannedFile& file) {
  std::string path = setup.folder;
  for (const std::string& part : SplitTarget(file.stored).parts) path = tools::JoinPath(path, part);
  return path;
}

std::optional<std::uint64_t> SizeOf(const Setup& setup, const PlannedFile& file) {
  if (file.packaged) {
    const Member* const member = setup.archive ? setup.archive->Find(file.stored) : nullptr;
    return member == nullptr ? std::nullopt : std::optional(member->size);
  }
  if (file.stored.empty()) return std::nullopt;
  const std::string path = TreePath(setup, file);
  if (!tools::FileExists(path)) return std::nullopt;
  return tools::StampOf(path).size;
}

ContentReader::ContentReader(const Setup& setup)
    : setup_(setup), folder_(tools::CanonicalPath(setup.folder)) {}

void ContentReader::Read(const PlannedFile& file, const ByteSink& sink) {
  if (!file.packaged) {
    ReadTreeFile(TreePath(setup_, file), sink);
    return;
  }
  const Member* const member = setup_.archive ? setup_.archive->Find(file.stored) : nullptr;
  if (member == nullptr) {
    throw tools::Error("Das Archiv enthält diese Datei nicht: " + file.stored);
  }
  unpacker_.Unpack(*setup_.archive, *member, sink);
}

void ContentReader::ReadTreeFile(const std::string& path, const ByteSink& sink) {
  if (!tools::IsSameOrBelow(tools::CanonicalPath(path), folder_)) {
    throw tools::Error("Diese Verknüpfung führt aus dem Setup hinaus: " + path);
  }
  const tools::InputFile input(path);
  buffer_.resize(kPieceBytes);
  std::size_t count = buffer_.size();
  for (std::uint64_t offset = 0; count == buffer_.size(); offset += count) {
    count = input.ReadAt(offset, buffer_);  // fewer bytes only where the file ends
    if (count > 0) sink(std::string_view(buffer_).substr(0, count));
  }
}

}  // namespace setup
