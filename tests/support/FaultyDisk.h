// A disk whose steps fail when a test says so.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

#include "tools/Disk.h"
#include "tools/Error.h"

namespace tests {

/// Forwards everything to another disk but the one step that was chosen to fail.
class FaultyDisk : public tools::Disk {
 public:
  enum class Step { Create, Write, Sync, Close, Replace };

  /// `disk` must outlive this object.
  explicit FaultyDisk(tools::Disk& disk) : disk_(disk) {}

  /// The `call`-th call (from 1) of a step, and every later one, fails: the disk is full.
  void FailAt(Step step, int call) { failingCall_[static_cast<std::size_t>(step)] = call; }

  [[nodiscard]] std::unique_ptr<tools::OutputFile> CreateNew(const std::string& path) override {
    Pass(Step::Create, path);
    return std::make_unique<File>(*this, path, disk_.CreateNew(path));
  }
  void Replace(const std::string& from, const std::string& to) override {
    Pass(Step::Replace, to);
    disk_.Replace(from, to);
  }
  void SyncFolder(const std::string& folder) noexcept override { disk_.SyncFolder(folder); }
  void Discard(const std::string& path) noexcept override { disk_.Discard(path); }

 private:
  class File : public tools::OutputFile {
   public:
    File(FaultyDisk& disk, std::string path, std::unique_ptr<tools::OutputFile> file)
        : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

    void Write(std::string_view bytes) override { At(Step::Write).Write(bytes); }
    void WriteAt(std::uint64_t offset, std::string_view bytes) override {
      At(Step::Write).WriteAt(offset, bytes);
    }
    void Truncate(std::uint64_t size) override { file_->Truncate(size); }
    void Sync() override { At(Step::Sync).Sync(); }
    void Close() override { At(Step::Close).Close(); }

   private:
    tools::OutputFile& At(Step step) {
      disk_.Pass(step, path_);
      return *file_;
    }

    FaultyDisk& disk_;
    std::string path_;
    std::unique_ptr<tools::OutputFile> file_;
  };

  /// Counts a call of a step and raises tools::Error naming the path when it is to fail.
  void Pass(Step step, const std::string& path) {
    const auto index = static_cast<std::size_t>(step);
    if (++calls_[index] < failingCall_[index] || failingCall_[index] == 0) return;
    throw tools::PathError("Die Datei kann nicht geschrieben werden", path,
                           std::make_error_code(std::errc::no_space_on_device));
  }

  tools::Disk& disk_;
  std::array<int, 5> failingCall_{};
  std::array<int, 5> calls_{};
};

}  // namespace tests
