#include "setup/ContentProof.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <exception>
#include <mutex>
#include <thread>

#include "setup/TargetPath.h"
#include "tools/Error.h"
#include "tools/Text.h"
#include "tools/files/InputFile.h"
#include "tools/files/Path.h"

namespace setup {

namespace {

/// The plan's files by their targets.
class Targets {
 public:
  explicit Targets(const Plan& plan) : files_(plan.files), takenFrom_(plan.files.size()) {
    byTarget_.resize(files_.size());
    for (std::uint32_t i = 0; i < byTarget_.size(); ++i) byTarget_[i] = i;
    std::ranges::stable_sort(byTarget_, {}, [this](std::uint32_t i) { return TargetOf(i); });
  }

  /// The next file with this target that nobody took.
  [[nodiscard]] std::uint32_t Take(std::string_view target) {
    const auto first = std::ranges::lower_bound(byTarget_, target, {},
                                                [this](std::uint32_t i) { return TargetOf(i); });
    if (first == byTarget_.end()) return ExpectedFile::kNotPlanned;
    std::uint32_t& taken = takenFrom_[*first];
    if (taken >= byTarget_.end() - first) return ExpectedFile::kNotPlanned;
    const auto found = first + taken;
    if (TargetOf(*found) != target) return ExpectedFile::kNotPlanned;
    ++taken;
    return *found;
  }

 private:
  [[nodiscard]] std::string_view TargetOf(std::uint32_t i) const { return files_[i].target; }

  const std::vector<PlannedFile>& files_;
  std::vector<std::uint32_t> byTarget_;
  std::vector<std::uint32_t> takenFrom_;  ///< by the first file of a target: how many are taken
};

}  // namespace

std::string ExpectedTarget(const ExpectedEntry& entry, const std::string& source) {
  std::string target = entry.targetSubFolder;
  if (entry.targetFolder != kCustomFolder) {
    const std::string_view folder = FolderName(entry.targetFolder);
    target = folder.empty() ? std::string() : "%" + std::string(folder) + "%";
    if (!entry.targetSubFolder.empty()) target += "\\" + entry.targetSubFolder;
  }
  return target + "\\" +
         (entry.targetName.empty() ? tools::FileNamePart(source) : entry.targetName);
}

CopyRule ExpectedRule(const ExpectedEntry& entry, const std::string& source) {
  if (!entry.overwrites) return CopyRule::Add;
  const std::string extension = tools::LowerCase(tools::Extension(source));
  const bool program = extension == "exe" || extension == "dll" || extension == "ocx";
  return program ? CopyRule::ReplaceSafely : CopyRule::Copy;
}

std::vector<ExpectedFile> MatchFiles(const ExpectedSetup& expected, const Plan& plan) {
  Targets targets(plan);
  std::vector<ExpectedFile> files;
  for (std::uint32_t e = 0; e < expected.entries.size(); ++e) {
    const ExpectedEntry& entry = expected.entries[e];
    for (std::uint32_t s = 0; s < entry.sources.size(); ++s) {
      files.push_back({e, s, targets.Take(ExpectedTarget(entry, entry.sources[s]))});
    }
  }
  return files;
}

namespace {

constexpr std::chrono::milliseconds kProgressInterval{100};

/// Thrown where a file and its source part, so that the rest need not be read.
struct Different {
  std::uint64_t offset;
};

/// A source that is read as far as its copy is unpacked.
class Source {
 public:
  explicit Source(const std::string& path) : file_(path) {}

  void Compare(std::string_view copy, std::string& buffer) {
    buffer.resize(copy.size());
    const std::size_t count = file_.ReadAt(offset_, buffer);
    if (std::memcmp(buffer.data(), copy.data(), count) != 0 || count < copy.size()) {
      const auto parting = std::mismatch(
          copy.begin(), copy.begin() + static_cast<std::ptrdiff_t>(count), buffer.begin());
      throw Different{offset_ + static_cast<std::uint64_t>(parting.first - copy.begin())};
    }
    offset_ += count;
  }
  void RequireEnd() {
    char next = 0;
    if (file_.ReadAt(offset_, {&next, 1}) > 0) throw Different{offset_};
  }

 private:
  tools::InputFile file_;
  std::uint64_t offset_ = 0;
};

class Comparison {
 public:
  Comparison(const Setup& setup, const ExpectedSetup& expected,
             const std::vector<ExpectedFile>& files, tools::Progress& progress)
      : setup_(setup), expected_(expected), files_(files), progress_(progress) {}

  void Run(unsigned threads, const std::function<void(const tools::Progress&)>& onProgress) {
    running_ = threads;
    std::vector<std::jthread> workers;
    try {
      for (unsigned i = 0; i < threads; ++i) workers.emplace_back([this] { Work(); });
      Wait(onProgress);
    } catch (...) {
      stop_ = true;
      throw;
    }
    workers.clear();
    if (failure_) std::rethrow_exception(failure_);
  }

  std::vector<ContentFault> TakeFaults() {
    std::ranges::sort(faults_, {}, &ContentFault::file);
    return std::move(faults_);
  }

 private:
  void Wait(const std::function<void(const tools::Progress&)>& onProgress) {
    std::unique_lock lock(mutex_);
    while (running_ > 0) {
      ended_.wait_for(lock, kProgressInterval);
      const tools::Progress progress = progress_;
      lock.unlock();
      onProgress(progress);
      lock.lock();
    }
  }

  void Work() {
    try {
      ContentReader reader(setup_);
      std::string buffer;
      for (std::uint32_t i = next_++; i < files_.size() && !stop_; i = next_++) {
        if (files_[i].planned != ExpectedFile::kNotPlanned) CompareFile(i, reader, buffer);
      }
    } catch (...) {
      const std::lock_guard lock(mutex_);
      if (!stop_) failure_ = std::current_exception();
      stop_ = true;
    }
    const std::lock_guard lock(mutex_);
    --running_;
    ended_.notify_one();
  }

  void CompareFile(std::uint32_t i, ContentReader& reader, std::string& buffer) {
    const std::string& path = expected_.entries[files_[i].entry].sources[files_[i].source];
    try {
      Source source(path);
      reader.Read(setup_.plan.files[files_[i].planned], [&](std::string_view copy) {
        source.Compare(copy, buffer);
        Count(0, copy.size());
      });
      source.RequireEnd();
    } catch (const Different& different) {
      AddFault(i, "Der Inhalt weicht ab Byte " + std::to_string(different.offset) +
                      " von der Quelle ab: " + path);
    } catch (const tools::Error& error) {
      AddFault(i, error.what());
    }
    Count(1, 0);
  }

  void Count(std::uint64_t files, std::uint64_t bytes) {
    const std::lock_guard lock(mutex_);
    if (stop_) throw Stopped();
    progress_.filesDone += files;
    progress_.bytesDone += bytes;
  }
  void AddFault(std::uint32_t file, std::string text) {
    const std::lock_guard lock(mutex_);
    faults_.push_back({file, std::move(text)});
  }

  /// Ends a thread after another one failed or the caller wants it.
  struct Stopped {};

  const Setup& setup_;
  const ExpectedSetup& expected_;
  const std::vector<ExpectedFile>& files_;
  std::atomic<std::uint32_t> next_ = 0;
  std::atomic<bool> stop_ = false;

  std::mutex mutex_;  // guards what follows
  std::condition_variable ended_;
  unsigned running_ = 0;
  tools::Progress& progress_;
  std::vector<ContentFault> faults_;
  std::exception_ptr failure_;
};

}  // namespace

std::vector<ContentFault> CompareContents(
    const Setup& setup, const ExpectedSetup& expected, const std::vector<ExpectedFile>& files,
    unsigned threads, tools::Progress& progress,
    const std::function<void(const tools::Progress&)>& onProgress) {
  Comparison comparison(setup, expected, files, progress);
  comparison.Run(std::max(1U, threads), onProgress);
  return comparison.TakeFaults();
}

}  // namespace setup
