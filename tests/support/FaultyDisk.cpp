#include "tests/support/FaultyDisk.h"

#include <utility>

#include "tools/Error.h"

namespace tests {

namespace {

class FaultyFile : public tools::OutputFile {
 public:
  FaultyFile(FaultyDisk& disk, std::string path, std::unique_ptr<tools::OutputFile> file)
      : disk_(disk), path_(std::move(path)), file_(std::move(file)) {}

  void Write(std::string_view bytes) override {
    disk_.Pass(FaultyDisk::Step::Write, path_);
    file_->Write(bytes);
  }
  void WriteAt(std::uint64_t offset, std::string_view bytes) override {
    disk_.Pass(FaultyDisk::Step::Write, path_);
    file_->WriteAt(offset, bytes);
  }
  void Truncate(std::uint64_t size) override { file_->Truncate(size); }
  void Sync() override {
    disk_.Pass(FaultyDisk::Step::Sync, path_);
    file_->Sync();
  }
  void Close() override {
    disk_.Pass(FaultyDisk::Step::Close, path_);
    file_->Close();
  }

 private:
  FaultyDisk& disk_;
  std::string path_;
  std::unique_ptr<tools::OutputFile> file_;
};

}  // namespace

void FaultyDisk::FailAt(Step step, int call, std::error_code cause) {
  failingCall_[static_cast<std::size_t>(step)] = call;
  cause_ = cause;
}

void FaultyDisk::Pass(Step step, const std::string& path) {
  const auto index = static_cast<std::size_t>(step);
  ++calls_[index];
  if (failingCall_[index] != 0 && calls_[index] >= failingCall_[index]) {
    throw tools::PathError("Die Datei kann nicht geschrieben werden", path, cause_);
  }
}

std::unique_ptr<tools::OutputFile> FaultyDisk::CreateNew(const std::string& path) {
  Pass(Step::Create, path);
  return std::make_unique<FaultyFile>(*this, path, disk_.CreateNew(path));
}

void FaultyDisk::Replace(const std::string& from, const std::string& to) {
  Pass(Step::Replace, to);
  disk_.Replace(from, to);
}

void FaultyDisk::SyncFolder(const std::string& folder) noexcept { disk_.SyncFolder(folder); }

void FaultyDisk::Discard(const std::string& path) noexcept { disk_.Discard(path); }

}  // namespace tests
