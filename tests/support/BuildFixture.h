// A product with source files, and builds of it whose reports are kept.
#pragma once

#include <functional>
#include <optional>

#include "engine/Build.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TestProduct.h"
#include "tests/support/Testing.h"

namespace tests {

class BuildFixture : public testing::Test, protected engine::BuildObserver {
 protected:
  /// The version has no components yet.
  BuildFixture() {
    folder_.Write("Produkt/Version 1.0.0/product.version", "[Components]\nCount=0\n");
  }

  /// Writes a source file and gives an entry for it, with these settings of its own.
  std::string Source(const std::string& name, const std::string& content,
                     const std::string& settings = {}) {
    return TestProduct::File(folder_.Write("quelle/" + name, content), settings);
  }

  void Run() {
    summary_.reset();
    summary_ = engine::BuildVersion(
        {product_.Project(), clock_, disk_, folder_.Path("programm"), tools::Version{1, 2, 3}},
        options_, 1, *this);
  }

  void OnMessage(const engine::BuildMessage& message) override { messages_.push_back(message); }
  void OnProgress(const tools::Progress& progress) override {
    if (progress.filesTotal == 0) {
      found_.push_back(progress);
      return;
    }
    progress_ = progress;
    if (onProgress_) onProgress_(progress);
  }
  bool MayEmptyOutputFolder(const std::string& /*folder*/) override {
    ++questions_;
    if (onQuestion_) onQuestion_();
    return mayEmpty_;
  }
  // Each question is a report's length from the one before, so that no report is thinned out.
  bool IsStopWanted() override {
    clock_.Turn(tools::ReportPace::kInterval);
    return isStopWanted_;
  }

  [[nodiscard]] std::string Out(const std::string& name) { return folder_.Read("aus/" + name); }
  [[nodiscard]] bool HasOut(const std::string& name) { return folder_.Holds("aus/" + name); }
  /// The log without its head.
  [[nodiscard]] std::string LogLines() {
    const std::string head = "Quillon Packwright Build Log\r\nCreated: 17.03.2031 08:05:09\r\n\r\n";
    const std::string log = Out("build.log");
    EXPECT_TRUE(log.starts_with(head)) << log;
    return log.substr(head.size());
  }

  TemporaryFolder folder_;
  TestProduct product_{folder_};
  model::ModProject& project_ = product_.Project();
  FixedClock clock_;
  FaultyDisk disk_;
  engine::BuildOptions options_{.folder = folder_.Path("aus")};

  std::vector<engine::BuildMessage> messages_;
  std::vector<tools::Progress> found_;  ///< reports of the survey
  tools::Progress progress_;            ///< of the packing, as reported last
  std::optional<engine::BuildSummary> summary_;
  std::function<void()> onQuestion_;
  bool mayEmpty_ = true;  ///< the answer about an output folder that holds files, and
  int questions_ = 0;     ///< how often it was asked for
  bool isStopWanted_ = false;
  /// The first report comes when the output folder is ready and nothing is stored yet.
  std::function<void(const tools::Progress&)> onProgress_;
};

}  // namespace tests
