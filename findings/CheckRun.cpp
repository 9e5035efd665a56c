#include "findings/CheckRun.h"

#include <exception>
#include <stop_token>

#include "engine/BuildCheck.h"
#include "model/ModProject.h"
#include "tools/Progress.h"
#include "tools/files/Disk.h"
#include "tools/settings/SettingsStore.h"

namespace findings {

namespace {

// The program's own model belongs to its one thread; the check has another.
std::vector<engine::BuildMessage> Check(const CheckRequest& request, const std::stop_token& stop) {
  try {
    tools::SystemDisk disk;
    tools::SettingsStore settings(disk);
    model::ModProject project(settings);
    project.SetProductPath(request.productPath);
    return engine::CheckBuild(project, request.options, request.version, request.programFolder,
                              [&stop] {
                                if (stop.stop_requested()) throw tools::Stopped();
                              });
  } catch (const std::exception& error) {
    engine::BuildMessage message;
    message.text = error.what();
    return {message};
  }
}

}  // namespace

CheckRun::~CheckRun() {
  for (Thread& each : threads_) each.thread.request_stop();
}

void CheckRun::Start(const CheckRequest& request) {
  Stop();
  current_ = ++started_;
  threads_.push_back(
      {current_, std::jthread([this, request, number = current_](const std::stop_token& stop) {
         std::vector<engine::BuildMessage> messages;
         try {
           messages = Check(request, stop);
         } catch (const tools::Stopped&) {
           // Take passes over what a dropped check says.
         }
         QMetaObject::invokeMethod(
             this, [this, number, messages = std::move(messages)] { Take(number, messages); },
             Qt::QueuedConnection);
       })});
}

void CheckRun::Stop() {
  current_ = 0;
  if (!threads_.empty()) threads_.back().thread.request_stop();
}

void CheckRun::Take(std::uint64_t number, const std::vector<engine::BuildMessage>& messages) {
  // The thread has nothing left to do: joining it does not wait.
  threads_.remove_if([number](const Thread& each) { return each.number == number; });
  if (number != current_) return;
  current_ = 0;
  Q_EMIT Finished(messages);
}

}  // namespace findings
