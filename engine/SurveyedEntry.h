// One entry of a version as a survey keeps it: what later passes need, in as little memory as that
// takes. A version can have a million of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/SourceList.h"
#include "model/ICFile.h"

namespace engine {

/// Full paths, in the order of installation. The views live as long as the entry.
class SourcePaths {
 public:
  /// Iterates over texts that each end in a NUL, up to an empty one.
  class Iterator {
   public:
    using value_type = std::string_view;
    using difference_type = std::ptrdiff_t;

    Iterator() = default;
    explicit Iterator(const char* text) : path_(text) {}
    std::string_view operator*() const { return path_; }
    Iterator& operator++() {
      path_ = path_.data() + path_.size() + 1;
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(std::default_sentinel_t /*end*/) const { return path_.empty(); }

   private:
    std::string_view path_;
  };

  explicit SourcePaths(const char* first) : first_(first) {}
  [[nodiscard]] Iterator begin() const { return Iterator(first_); }
  [[nodiscard]] static std::default_sentinel_t end() { return {}; }
  [[nodiscard]] bool IsEmpty() const { return *first_ == '\0'; }

 private:
  const char* first_;
};

/// An entry that takes part in the build (excluded ones do not).
class SurveyedEntry {
 public:
  /// Entry `number` of its component, which stands for these sources. `file` is empty where it
  /// could not be read.
  SurveyedEntry(std::int32_t number, const model::ICFile& file, SourceList sources);

  [[nodiscard]] std::int32_t Number() const { return number_; }
  /// Entries that the file has no section for are all alike: this one stands for those up to Last.
  [[nodiscard]] std::int32_t Last() const { return last_; }
  [[nodiscard]] bool HasSection() const { return hasSection_; }
  void StandForMissing(std::int32_t last);

  /// The entry as it was read, but for what only finding its sources takes: their folder and name,
  /// `IncludeChildren`, `Exclude` and `Permanent`.
  [[nodiscard]] model::ICFile File() const;
  [[nodiscard]] std::string_view ID() const { return texts_.get(); }
  [[nodiscard]] SourcePaths Sources() const;
  [[nodiscard]] std::span<const SurveyProblem> Problems() const;

 private:
  // ID, TargetSubFolder, TargetName and the sources, each with a NUL behind it, and one more NUL.
  // No settings value of a component has one, and no path.
  std::unique_ptr<char[]> texts_;
  std::unique_ptr<const std::vector<SurveyProblem>> problems_;  // null: none
  std::int32_t number_;
  std::int32_t last_;
  std::int32_t targetFolder_;
  std::int16_t type_;
  std::int16_t selfRegister_;
  std::int16_t overwrite_;
  std::int16_t registerPath_;
  std::int16_t vital_;
  bool hasSection_ = true;
};

}  // namespace engine
