#include "engine/BuildProgress.h"

namespace engine {

namespace {

// Often enough to look alive, seldom enough to cost nothing.
constexpr std::chrono::milliseconds kInterval{50};

}  // namespace

BuildProgress::BuildProgress(tools::Dialogs& dialogs, int notice, BuildStatus& status)
    : dialogs_(dialogs), notice_(notice), status_(status) {}

void BuildProgress::Start(std::uint64_t files, std::uint64_t bytes) {
  progress_.filesTotal = files;
  progress_.bytesTotal = bytes;
  Tell();
}

void BuildProgress::Report(std::uint64_t files, std::uint64_t bytes) {
  progress_.filesDone = files;
  progress_.bytesDone = bytes;
  if (std::chrono::steady_clock::now() - lastTold_ >= kInterval) Tell();
}

void BuildProgress::Finish() { Tell(); }

void BuildProgress::AskLeave() {
  if (std::chrono::steady_clock::now() - lastTold_ < kInterval) return;
  lastTold_ = std::chrono::steady_clock::now();
  status_.OnProgress(progress_);
}

void BuildProgress::Tell() {
  lastTold_ = std::chrono::steady_clock::now();
  dialogs_.UpdateBusyNotice(notice_, progress_);
  status_.OnProgress(progress_);
}

}  // namespace engine
