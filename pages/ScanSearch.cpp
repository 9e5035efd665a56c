#include "pages/ScanSearch.h"

#include <atomic>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "model/TextTable.h"
#include "tools/Progress.h"
#include "tools/desktop/QtText.h"
#include "tools/files/Files.h"
#include "tools/files/FindFiles.h"
#include "tools/files/Path.h"

namespace pages {

/// What the window's thread and those of the searches use.
struct ScanSearch::Shared {
  std::mutex mutex;
  ScanSearch* owner = nullptr;           ///< null once nobody waits for an answer
  std::atomic<std::uint64_t> round = 0;  ///< counts the calls of Start
};

namespace {

/// What `folder` holds; `step` is called often and ends the search by what it throws.
ScanResult Search(const std::string& folder, const FolderScan& scan,
                  const tools::ListingStep& step) {
  ScanResult result;
  if (!tools::FolderExists(folder)) {
    result.problem = model::LoadText(model::Text::ScanFolderMissing);
    return result;
  }
  const tools::FoundFiles found = tools::SearchFiles(
      folder, scan.pattern,
      {.includeSubfolders = scan.withSubfolders, .skipTemporary = true, .step = step});
  const std::size_t prefix = tools::EnsureTrailingSeparator(folder).size();
  for (const std::string& path : found.paths) {
    step();
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(tools::ToPath(path), failure);
    if (!failure) result.bytes += size;
    result.files += tools::ToQString(std::string_view(path).substr(prefix));
  }
  if (!found.unreadFolders.empty()) {
    result.problem = model::LoadText(model::Text::ScanFolderUnreadable) + "\n" +
                     found.unreadFolders.front().path;
  }
  return result;
}

}  // namespace

ScanSearch::ScanSearch(QObject* parent) : QObject(parent), shared_(std::make_shared<Shared>()) {
  shared_->owner = this;
}

ScanSearch::~ScanSearch() {
  ++shared_->round;
  const std::lock_guard lock(shared_->mutex);
  shared_->owner = nullptr;
}

void ScanSearch::Start(const FolderScan& scan, const std::string& productFolder) {
  const std::uint64_t round = ++shared_->round;
  const auto work = [shared = shared_, round, scan, productFolder] {
    ScanResult result;
    try {
      result = Search(tools::ResolvePath(scan.folder, productFolder), scan, [&shared, round] {
        if (shared->round != round) throw tools::Stopped();
      });
    } catch (const tools::Stopped&) {
      return;
    } catch (const std::exception& error) {
      result.problem = error.what();
    }
    const std::lock_guard lock(shared->mutex);
    if (shared->owner == nullptr) return;
    QMetaObject::invokeMethod(
        shared->owner,
        [shared, round, result = std::move(result)] {
          if (shared->round == round) Q_EMIT shared->owner->Found(result);
        },
        Qt::QueuedConnection);
  };
  // Detached, because nothing may wait for a search that hangs.
  std::thread(work).detach();
}

}  // namespace pages
