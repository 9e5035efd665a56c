// A disk whose steps fail when a test says so.
#pragma once

#include <array>
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

/// The machine's own disk, but for the steps that were chosen to fail.
class FaultyDisk : public tools::SystemDisk {
 public:
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
    CopyFile
  };
  static constexpr std::size_t kSteps = 10;

  /// The `call`-th call (from 1) of a step, and every later one, fails: the disk is full. 0 ends
  /// that.
  void FailAt(Step step, int call) { At(step) = {call, false, 0}; }
  /// That one call fails, counted from now.
  void FailOnce(Step step, int call) { At(step) = {call, true, 0}; }
  /// How often a step was called since the last FailAt or FailOnce for it.
  [[nodiscard]] int Calls(Step step) { return At(step).calls; }

  [[nodiscard]] std::unique_ptr<tools::OutputFile> CreateNew(const std::string& path,
                                                             const std::string& target) override {
    Pass(Step::Create, target);
    return std::make_unique<File>(*this, target, SystemDisk::CreateNew(path, target));
  }
  void Replace(const std::string& from, const std::string& to) override {
    Pass(Step::Replace, to);
    SystemDisk::Replace(from, to);
  }
  std::vector<std::string> MakeFolder(const std::string& path) override {
    Pass(Step::MakeFolder, path);
    return SystemDisk::MakeFolder(path);
  }
  void RemoveFolderTree(const std::string& path) override {
    Pass(Step::RemoveFolderTree, path);
    SystemDisk::RemoveFolderTree(path);
  }
  void MoveFolder(const std::string& from, const std::string& to) override {
    Pass(Step::MoveFolder, tools::IsTemporaryName(from) ? to : from);
    SystemDisk::MoveFolder(from, to);
  }
  void DeleteFile(const std::string& path) override {
    Pass(Step::DeleteFile, path);
    SystemDisk::DeleteFile(path);
  }
  [[nodiscard]] tools::CopyResult CopyFile(const std::string& source, const std::string& target,
                                           const tools::CopyProgress& progress) override {
    try {
      Pass(Step::CopyFile, target);
    } catch (const tools::Error& error) {
      return {.errorText = tools::SystemErrorText(error.Cause()), .cause = error.Cause()};
    }
    return SystemDisk::CopyFile(source, target, progress);
  }

 private:
  class File : public tools::OutputFile {
   public:
    File(FaultyDisk& disk, std::string path, std::unique_ptr<tools::OutputFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    void Write(std::string_view bytes) override { AtStep(Step::Write).Write(bytes); }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      AtStep(Step::Write).WriteAt(offset, bytes);
    }
    void Truncate(std::uint64_t size) override { file_->Truncate(size); }
    void Sync() override { AtStep(Step::Sync).Sync(); }
    void Close() override { AtStep(Step::Close).Close(); }

   private:
    tools::OutputFile& AtStep(Step step) {
      disk_.Pass(step, path_);
      return *file_;
    }

    FaultyDisk& disk_;
    std::string path_;
    std::unique_ptr<tools::OutputFile> file_;
  };

  struct Fault {
    int call = 0;  ///< 0: none
    bool once = false;
    int calls = 0;  ///< so far
  };

  Fault& At(Step step) { return faults_.at(static_cast<std::size_t>(step)); }

  /// Counts a call of a step and raises tools::Error naming the path when it is to fail.
  void Pass(Step step, const std::string& path) {
    Fault& fault = At(step);
    ++fault.calls;
    if (fault.call == 0 || fault.calls < fault.call) return;
    if (fault.once && fault.calls > fault.call) return;
    throw tools::PathError("Die Datei kann nicht geschrieben werden", path,
                           std::make_error_code(std::errc::no_space_on_device));
  }

  std::array<Fault, kSteps> faults_{};
};

}  // namespace tests
