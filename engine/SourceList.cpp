#include "engine/SourceList.h"

#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace engine {

namespace {

void LeaveOut(SourceList& list, const std::string& what, const std::string& userWhat,
              const std::string& path) {
  list.problems.push_back(
      {SourceFault::Name, Severity::Error, what + ": " + path, userWhat + ": " + path});
}

// No line of a script could name such a file: in a target a backslash leads to another folder.
void LeaveOutUnfitNames(SourceList& list) {
  std::erase_if(list.paths, [&list](const std::string& path) {
    if (tools::kPathSeparator != '\\' && path.find('\\') != std::string::npos &&
        tools::FileNamePart(path).find('\\') != std::string::npos) {
      LeaveOut(list, "File name holds a backslash", "Der Dateiname enthält einen Rückstrich",
               tools::EscapeControlCharacters(path));
      return true;
    }
    if (!tools::IsValidUtf8(path) && !tools::IsValidUtf8(tools::FileNamePart(path))) {
      LeaveOut(list, "File name is not UTF-8", "Der Dateiname ist nicht in UTF-8 geschrieben",
               tools::EscapeControlCharacters(path));
      return true;
    }
    if (!tools::HasControlCharacter(path)) return false;  // nearly all
    if (!tools::HasControlCharacter(tools::FileNamePart(path))) return false;
    LeaveOut(list, "File name holds a control character", "Der Dateiname enthält ein Steuerzeichen",
             tools::EscapeControlCharacters(path));
    return true;
  });
}

SourceList SingleFile(const model::ICFile& entry, const std::string& folder) {
  SourceList list;
  std::string path = tools::JoinPath(folder, entry.SourceName);
  std::error_code failure;
  if (tools::KindOf(path, failure) == tools::PathKind::File) {
    list.paths.push_back(std::move(path));
    return list;
  }
  const std::string cause = failure ? tools::SystemErrorText(failure) : std::string{};
  std::string userText = "Die Quelldatei fehlt: " + path;
  if (failure) userText.append(" (").append(cause).append(")");
  list.problems.push_back(
      {SourceFault::Missing, Severity::Error, "File missing: " + path, std::move(userText), cause});
  return list;
}

// One problem for each place: the log's text and the screen's, then the path, then the cause.
void AddUnseen(SourceList& list, SourceFault fault, Severity severity,
               const std::vector<tools::UnseenPath>& places, const std::string& logWhat,
               const std::string& userWhat) {
  for (const tools::UnseenPath& place : places) {
    const std::string cause = tools::SystemErrorText(place.cause);
    list.problems.push_back({fault, severity, logWhat + " '" + place.path + "': " + cause,
                             userWhat + ": " + place.path + " (" + cause + ")"});
  }
}

// The same for places whose kind says it all.
void AddPassedOver(SourceList& list, SourceFault fault, const std::vector<std::string>& places,
                   const std::string& logWhat, const std::string& userWhat) {
  for (const std::string& place : places) {
    list.problems.push_back(
        {fault, Severity::Warning, logWhat + " '" + place + "'", userWhat + ": " + place});
  }
}

SourceList FolderScan(const model::ICFile& entry, const std::string& folder,
                      const SourceScope& scope) {
  tools::FoundFiles found = tools::SearchFiles(folder, entry.SourceName,
                                               {.includeSubfolders = entry.IncludeChildren != 0,
                                                .leaveOut = scope.outputFolder,
                                                .skipTemporary = true,
                                                .step = scope.step,
                                                .listed = scope.listed});
  SourceList list;
  AddUnseen(list, SourceFault::Unreadable, Severity::Error, found.unreadFolders,
            "Unable to read folder", "Der Ordner kann nicht gelesen werden");
  AddUnseen(list, SourceFault::DeadLink, Severity::Warning, found.deadLinks,
            "Link leads to no file", "Die Verknüpfung führt zu keiner Datei");
  for (std::size_t i = 0; i < found.deadLinks.size(); ++i) {
    // It may lead to a file, which the setup then lacks.
    if (found.deadLinks[i].cause == std::errc::permission_denied) {
      list.problems[list.problems.size() - found.deadLinks.size() + i].severity = Severity::Error;
    }
  }
  AddPassedOver(list, SourceFault::FolderLink, found.folderLinks, "Link to a folder is left out",
                "Die Verknüpfung zu einem Ordner wird nicht verfolgt");
  AddPassedOver(list, SourceFault::Special, found.specialFiles, "No regular file, left out",
                "Das ist keine gewöhnliche Datei und bleibt weg");
  if (found.paths.empty() && found.unreadFolders.empty()) {
    list.problems.push_back(
        {SourceFault::NoMatch, Severity::Warning,
         "No files found in '" + entry.SourcePath + "' matching '" + entry.SourceName + "'",
         "Keine Datei im Ordner '" + folder + "' passt zu '" + entry.SourceName + "'"});
  }
  list.paths = std::move(found.paths);
  list.links = std::move(found.links);
  LeaveOutUnfitNames(list);
  return list;
}

SourceList OtherType(const model::ICFile& entry) {
  const std::string type = std::to_string(entry.Type);
  SourceList list;
  list.problems.push_back({SourceFault::Type, Severity::Warning,
                           "Entry of type " + type + " is left out",
                           "Der Eintragstyp ist weder 1 noch 2: " + type});
  return list;
}

}  // namespace

std::string SourceFolderOf(const model::ICFile& entry, const std::string& productFolder) {
  return tools::ResolvePath(entry.SourcePath, productFolder);
}

SourceList ListSources(const model::ICFile& entry, const SourceScope& scope) {
  const std::string folder = SourceFolderOf(entry, scope.productFolder);
  if (entry.Type == model::ICFile::kSingleFile) return SingleFile(entry, folder);
  if (entry.Type == model::ICFile::kFolderScan) return FolderScan(entry, folder, scope);
  return OtherType(entry);
}

}  // namespace engine
