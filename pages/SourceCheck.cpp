#include "pages/SourceCheck.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>
#include <unordered_set>
#include <utility>

#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace pages {

namespace {

constexpr auto kBetweenReports = std::chrono::milliseconds(100);

/// From so many files of a folder on, listing it is quicker than looking for each.
constexpr std::ptrdiff_t kWorthListing = 8;

}  // namespace

/// What the window's thread and the worker's both use. It lives as long as either of them needs it.
struct SourceCheck::Shared {
  std::mutex mutex;
  SourceCheck* owner = nullptr;  ///< null once nobody waits for an answer
  std::uint64_t round = 0;       ///< counts the calls of Start
  std::vector<SourcePlace> places;
  std::string productFolder;
  bool isWaiting = false;  ///< `places` are new
  bool isRunning = false;
};

/// One thread that looks for what is asked for, and ends when nothing more is.
class SourceCheck::Worker {
 public:
  explicit Worker(std::shared_ptr<Shared> shared) : shared_(std::move(shared)) {}

  void Run() {
    while (TakePlaces()) {
      std::stable_sort(places_.begin(), places_.end(),
                       [](const auto& a, const auto& b) { return a.folder < b.folder; });
      auto first = places_.begin();
      bool isWanted = true;
      while (isWanted && first != places_.end()) {
        const auto behind = std::find_if(first, places_.end(), [&first](const SourcePlace& place) {
          return place.folder != first->folder;
        });
        isWanted = LookIn(first, behind);
        first = behind;
      }
      if (isWanted) Report();
    }
  }

 private:
  using Iterator = std::vector<SourcePlace>::const_iterator;

  bool TakePlaces() {
    const std::lock_guard lock(shared_->mutex);
    shared_->isRunning = shared_->owner != nullptr && shared_->isWaiting;
    if (!shared_->isRunning) return false;
    shared_->isWaiting = false;
    places_ = std::move(shared_->places);
    productFolder_ = shared_->productFolder;
    round_ = shared_->round;
    states_.clear();
    reported_ = Clock::now();
    return true;
  }

  /// Looks for sources of one folder; false when they are no longer asked for.
  bool LookIn(Iterator first, Iterator behind) {
    const std::string folder = tools::ResolvePath(first->folder, productFolder_);
    std::unordered_set<std::string> names;
    if (behind - first >= kWorthListing) {
      std::error_code failure;  // those not listed then are looked for one by one
      for (tools::FolderItem& item : tools::ListFolder(folder, failure)) {
        if (item.kind == tools::FolderItem::Kind::File) names.insert(std::move(item.name));
      }
    }
    for (; first != behind; ++first) {
      const bool isListed = first->name && names.contains(*first->name);
      const bool isThere = isListed || IsThere(folder, first->name);
      states_.push_back({first->id, !isThere});
      if (Clock::now() - reported_ >= kBetweenReports && !Report()) return false;
    }
    return true;
  }

  /// Case does not count on every machine, so a name that is not listed may be there all the same.
  static bool IsThere(const std::string& folder, const std::optional<std::string>& name) {
    std::error_code failure;
    if (!name) return tools::KindOf(folder, failure) == tools::PathKind::Folder;
    return tools::KindOf(tools::JoinPath(folder, *name), failure) == tools::PathKind::File;
  }

  /// False when nobody asks for these any more.
  bool Report() {
    reported_ = Clock::now();
    const std::lock_guard lock(shared_->mutex);
    if (shared_->owner == nullptr || shared_->round != round_) return false;
    QMetaObject::invokeMethod(
        shared_->owner,
        [owner = shared_->owner, round = round_, states = std::move(states_)] {
          if (owner->shared_->round == round) Q_EMIT owner->Found(states);
        },
        Qt::QueuedConnection);
    states_.clear();
    return true;
  }

  using Clock = std::chrono::steady_clock;

  std::shared_ptr<Shared> shared_;
  std::vector<SourcePlace> places_;
  std::string productFolder_;
  std::uint64_t round_ = 0;
  std::vector<SourceState> states_;
  Clock::time_point reported_;
};

SourceCheck::SourceCheck(QObject* parent) : QObject(parent), shared_(std::make_shared<Shared>()) {
  shared_->owner = this;
}

SourceCheck::~SourceCheck() {
  const std::lock_guard lock(shared_->mutex);
  shared_->owner = nullptr;
}

void SourceCheck::Start(std::vector<SourcePlace> places, std::string productFolder) {
  const std::lock_guard lock(shared_->mutex);
  ++shared_->round;
  shared_->places = std::move(places);
  shared_->productFolder = std::move(productFolder);
  shared_->isWaiting = true;
  if (shared_->isRunning) return;
  // Detached, because nothing may wait for a look that hangs.
  std::thread([worker = std::make_shared<Worker>(shared_)] { worker->Run(); }).detach();
  shared_->isRunning = true;
}

}  // namespace pages
