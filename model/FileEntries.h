// The file entries of one component in memory.
#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

#include "model/ICFile.h"

namespace model {

/// An entry taken out of its collection, to be put back in its place.
class TakenFileEntry {
 public:
  [[nodiscard]] const ICFile& Entry() const { return entry_.front(); }

 private:
  friend class FileEntries;
  std::list<ICFile> entry_;
  std::list<ICFile>::iterator next_;  ///< the entry that followed
};

/// Entries in the order of their insertion, found by ID. IDs are compared exactly. An entry stays
/// at its address until it is destroyed, also while it is taken out and when the collection itself
/// is moved.
class FileEntries {
 public:
  using const_iterator = std::list<ICFile>::const_iterator;

  FileEntries() = default;
  FileEntries(FileEntries&&) = default;
  FileEntries& operator=(FileEntries&&) = default;

  [[nodiscard]] std::size_t Count() const { return entries_.size(); }
  [[nodiscard]] const_iterator begin() const { return entries_.begin(); }
  [[nodiscard]] const_iterator end() const { return entries_.end(); }

  /// The entry with that ID; null when there is none.
  [[nodiscard]] const ICFile* Find(std::string_view id) const;

  /// Appends an entry. Raises tools::Error naming the ID when there is one with it already.
  void Add(ICFile entry);
  /// Takes out the entry with that ID, which must be there.
  [[nodiscard]] TakenFileEntry Take(std::string_view id);
  /// Puts an entry back in front of the one that followed it. That one must be there: put several
  /// entries back in the reverse order. No entry with its ID may have been added meanwhile.
  void PutBack(TakenFileEntry& taken);
  /// Sets a field from text by the rules of SetFileEntryField; an unknown ID changes nothing.
  void SetField(std::string_view id, std::string_view fieldName, std::string_view text);

 private:
  std::list<ICFile> entries_;
  /// The keys are views of the entries' own IDs.
  std::unordered_map<std::string_view, std::list<ICFile>::iterator> byId_;
};

/// The stored entries, in the order of their numbers. Raises tools::Error when a number does not
/// fit its field, naming the key and the component's file at `path`, and when two entries have the
/// same ID.
[[nodiscard]] FileEntries ReadFileEntries(const SettingReader& read, std::string_view path);

/// Stores all entries, numbered from 1; sections of higher numbers stay as they are.
void WriteFileEntries(const SettingWriter& write, const FileEntries& entries);

}  // namespace model
