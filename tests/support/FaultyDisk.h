// A disk whose steps fail when a test says so.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <system_error>

#include "tools/Disk.h"

namespace tests {

/// Forwards everything to another disk but the one step that was chosen to fail.
class FaultyDisk : public tools::Disk {
 public:
  enum class Step { Create, Write, Sync, Close, Replace };

  /// `disk` must outlive this object.
  explicit FaultyDisk(tools::Disk& disk) : disk_(disk) {}

  /// The `call`-th call (from 1) of a step, and every later one, fails with `cause`.
  void FailAt(Step step, int call,
              std::error_code cause = std::make_error_code(std::errc::no_space_on_device));

  [[nodiscard]] std::unique_ptr<tools::OutputFile> CreateNew(const std::string& path) override;
  void Replace(const std::string& from, const std::string& to) override;
  void SyncFolder(const std::string& folder) noexcept override;
  void Discard(const std::string& path) noexcept override;

  /// Counts a call of a step and raises tools::Error naming the path when it is to fail.
  void Pass(Step step, const std::string& path);

 private:
  tools::Disk& disk_;
  std::array<int, 5> failingCall_{};
  std::array<int, 5> calls_{};
  std::error_code cause_;
};

}  // namespace tests
