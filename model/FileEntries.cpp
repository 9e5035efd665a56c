#include "model/FileEntries.h"

#include <utility>

#include "tools/Error.h"

namespace model {

const ICFile* FileEntries::Find(std::string_view id) const {
  const auto found = byId_.find(id);
  return found == byId_.end() ? nullptr : &*found->second;
}

void FileEntries::Add(ICFile entry) {
  entries_.push_back(std::move(entry));
  const std::string& id = entries_.back().ID;
  if (byId_.emplace(id, std::prev(entries_.end())).second) return;
  const std::string text = "Es gibt bereits einen Dateieintrag mit dieser GUID: \"" + id + "\"";
  entries_.pop_back();
  throw tools::Error(text);
}

TakenFileEntry FileEntries::Take(std::string_view id) {
  const auto found = byId_.find(id);
  const auto entry = found->second;
  TakenFileEntry taken;
  taken.next_ = std::next(entry);
  byId_.erase(found);
  taken.entry_.splice(taken.entry_.begin(), entries_, entry);
  return taken;
}

void FileEntries::PutBack(TakenFileEntry& taken) {
  const auto entry = taken.entry_.begin();
  entries_.splice(taken.next_, taken.entry_);
  byId_.emplace(entry->ID, entry);
}

void FileEntries::SetField(std::string_view id, std::string_view fieldName, std::string_view text) {
  const auto found = byId_.find(id);
  if (found != byId_.end()) SetFileEntryField(*found->second, fieldName, text);
}

FileEntries ReadFileEntries(const SettingReader& read, std::string_view path) {
  const std::int32_t count = ReadFileCount(read, path);
  FileEntries entries;
  // A count far beyond the entries there are ends at the second missing one: both have no ID.
  for (std::int32_t number = 1; number <= count; ++number) {
    entries.Add(ReadFileEntry(read, path, number, EntryUse::Edit));
  }
  return entries;
}

void WriteFileEntries(const SettingWriter& write, const FileEntries& entries) {
  WriteFileCount(write, static_cast<std::int32_t>(entries.Count()));
  std::int32_t number = 0;
  for (const ICFile& entry : entries) WriteFileEntry(write, ++number, entry);
}

}  // namespace model
