// A disk whose steps a test can watch and have fail.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "tools/Error.h"
#include "tools/files/Disk.h"
#include "tools/files/Files.h"
#include "tools/files/TemporaryFiles.h"

namespace tests {

/// The machine's own disk, but for the steps that were chosen to fail. Nothing is flushed: that is
/// most of such a test's time, and the machine keeps its power.
class FaultyDisk : public tools::SystemDisk {
 public:
  /// Those before Discard can fail.
  enum class Step {
    Create,
    Write,
    Sync,
    Close,
    Replace,
    MakeFolder,
    RemoveFolderTree,
    MoveFolder,
    DeleteFile,
    CopyFile,
    Discard,
    SyncFolder
  };
  static constexpr std::size_t kFailingSteps = 10;
  /// A step as it is taken.
  struct Taken {
    Step step;
    std::string path;
    std::string other{};  ///< the new path, or the bytes
    std::uint64_t offset = 0;
  };

  /// The `call`-th call (from 1) of a step, and every later one, fails: the disk is full. 0 ends
  /// that.
  void FailAt(Step step, int call) { At(step) = {call, false, 0}; }
  /// That one call fails, counted from now.
  void FailOnce(Step step, int call) { At(step) = {call, true, 0}; }
  /// How often a step was called since the last FailAt or FailOnce for it.
  [[nodiscard]] int Calls(Step step) { return At(step).calls; }
  /// Told of each step that does not fail, before it is taken; may raise an error of its own.
  std::function<void(const Taken&)> onStep;

  [[nodiscard]] std::unique_ptr<tools::OutputFile> CreateNew(const std::string& path,
                                                             const std::string& target) override {
    Pass({Step::Create, path}, target);
    return std::make_unique<File>(*this, path, target, SystemDisk::CreateNew(path, target));
  }
  void Replace(const std::string& from, const std::string& to) override {
    Pass({Step::Replace, from, to}, to);
    SystemDisk::Replace(from, to);
  }
  std::vector<std::string> MakeFolder(const std::string& path) override {
    Pass({Step::MakeFolder, path}, path);
    return SystemDisk::MakeFolder(path);
  }
  void RemoveFolderTree(const std::string& path) override {
    Pass({Step::RemoveFolderTree, path}, path);
    SystemDisk::RemoveFolderTree(path);
  }
  void MoveFolder(const std::string& from, const std::string& to) override {
    Pass({Step::MoveFolder, from, to}, tools::IsTemporaryName(from) ? to : from);
    SystemDisk::MoveFolder(from, to);
  }
  void DeleteFile(const std::string& path) override {
    Pass({Step::DeleteFile, path}, path);
    SystemDisk::DeleteFile(path);
  }
  [[nodiscard]] tools::CopyResult CopyFile(const std::string& source, const std::string& target,
                                           const tools::CopyProgress& progress) override {
    try {
      Pass({Step::CopyFile, source, target}, target);
    } catch (const tools::Error& error) {
      return {.errorText = tools::SystemErrorText(error.Cause()), .cause = error.Cause()};
    }
    return SystemDisk::CopyFile(source, target, progress);
  }
  void Discard(const std::string& path) noexcept override {
    Pass({Step::Discard, path}, path);
    SystemDisk::Discard(path);
  }
  void SyncFolder(const std::string& folder) noexcept override {
    Pass({Step::SyncFolder, folder}, folder);
  }

 private:
  class File : public tools::OutputFile {
   public:
    File(FaultyDisk& disk, std::string path, std::string target,
         std::unique_ptr<tools::OutputFile> file)
        : disk_(disk), path_(std::move(path)), target_(std::move(target)), file_(std::move(file)) {}

    void Write(std::string_view bytes) override {
      disk_.Pass({Step::Write, path_, std::string(bytes), end_}, target_);
      file_->Write(bytes);
      end_ += bytes.size();
    }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      disk_.Pass({Step::Write, path_, std::string(bytes), offset}, target_);
      file_->WriteAt(offset, bytes);
    }
    void Truncate(std::uint64_t size) override { file_->Truncate(end_ = size); }
    void Sync() override { disk_.Pass({Step::Sync, path_}, target_); }
    void Close() override {
      disk_.Pass({Step::Close, path_}, target_);
      file_->Close();
    }

   private:
    FaultyDisk& disk_;
    std::string path_;
    std::string target_;
    std::unique_ptr<tools::OutputFile> file_;
    std::uint64_t end_ = 0;
  };

  struct Fault {
    int call = 0;  ///< 0: none
    bool once = false;
    int calls = 0;  ///< so far
  };

  Fault& At(Step step) { return faults_.at(static_cast<std::size_t>(step)); }

  /// Counts a call of a step and raises tools::Error naming `shown` when it is to fail.
  void Pass(const Taken& taken, const std::string& shown) {
    Fault& fault = At(taken.step);
    ++fault.calls;
    const bool isReached = fault.call != 0 && fault.calls >= fault.call;
    if (isReached && !(fault.once && fault.calls > fault.call)) {
      throw tools::PathError("Die Datei kann nicht geschrieben werden", shown,
                             std::make_error_code(std::errc::no_space_on_device));
    }
    if (onStep) onStep(taken);
  }

  std::array<Fault, kFailingSteps + 2> faults_{};
};

}  // namespace tests
