#include "tools/desktop/Background.h"

#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace tools {

namespace {

/// Where the result goes: null once the receiver is gone.
struct Address {
  std::mutex mutex;
  QObject* receiver = nullptr;
};

}  // namespace

void RunInBackground(QObject& receiver, std::function<std::function<void()>()> work) {
  const auto address = std::make_shared<Address>();
  address->receiver = &receiver;
  QObject::connect(&receiver, &QObject::destroyed, [address] {
    const std::lock_guard lock(address->mutex);
    address->receiver = nullptr;
  });
  std::thread([address, work = std::move(work)] {
    std::function<void()> result = work();
    const std::lock_guard lock(address->mutex);
    if (address->receiver == nullptr) return;
    QMetaObject::invokeMethod(address->receiver, std::move(result), Qt::QueuedConnection);
  }).detach();
}

}  // namespace tools
