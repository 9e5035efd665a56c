// A product with source files, and builds of it whose reports are kept.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "build/BuildSetup.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestProduct.h"
#include "tools/Text.h"

namespace tests {

/// Keeps everything a build tells.
class RecordingStatus : public build::BuildStatus {
 public:
  void OnMessage(const build::BuildMessage& message) override { messages.push_back(message); }
  void OnProgress(const tools::Progress& progress) override {
    reports.push_back(progress);
    if (onProgress) onProgress(progress);
  }
  void OnEnd(const build::BuildSummary& end) override { summary = end; }

  std::vector<build::BuildMessage> messages;
  std::vector<tools::Progress> reports;
  std::optional<build::BuildSummary> summary;
  /// The first report comes when the sources are listed, the second when the output folder is ready
  /// and nothing is stored yet.
  std::function<void(const tools::Progress&)> onProgress;
};

class BuildFixture : public testing::Test {
 protected:
  static constexpr const char* kLogHead =
      "Quillon Packwright Build Log\r\nCreated: 17.03.2031 08:05:09\r\n\r\n";

  /// Writes a source file and gives an entry for it.
  model::ICFile Source(const std::string& name, const std::string& content) {
    return TestProduct::File(folder_.Write("quelle/" + name, content));
  }

  void Run() { Run(disk_); }
  void Run(tools::Disk& disk) {
    status_.summary.reset();
    build::BuildSetup({product_.Project(), dialogs_, clock_, disk, status_,
                       folder_.Path("programm"), tools::Version{1, 2, 3}},
                      settings_, 1);
  }

  [[nodiscard]] std::string Out(const std::string& name) { return folder_.Read("aus/" + name); }
  [[nodiscard]] bool HasOut(const std::string& name) { return folder_.Holds("aus/" + name); }
  /// The log without its head.
  [[nodiscard]] std::string LogLines() {
    const std::string log = Out("build.log");
    EXPECT_TRUE(log.starts_with(kLogHead)) << log;
    return log.substr(std::string(kLogHead).size());
  }
  /// The script's lines from the first component's heading on.
  [[nodiscard]] std::string ScriptLines() {
    const std::string script = tools::ReplaceAll(Out("Probe.install"), "\r\n", "\n");
    const std::string before = "PathStr(\"%ProgramFiles%\\Probe\")\n\n";
    return script.substr(script.find(before) + before.size());
  }

  TemporaryFolder folder_;
  TestProduct product_{folder_};
  ScriptedDialogs dialogs_;
  FixedClock clock_;
  tools::SystemDisk disk_;
  RecordingStatus status_;
  build::BuildSettings settings_{{"folder", folder_.Path("aus")}, {"makezip", "0"}};
};

}  // namespace tests
