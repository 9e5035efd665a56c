// Lists in the background what a folder scan finds.
#pragma once

#include <QObject>
#include <QStringList>
#include <cstdint>
#include <memory>
#include <string>

namespace pages {

/// A folder scan as an author describes it.
struct FolderScan {
  std::string folder;  ///< as stored: a relative one is taken from the product's folder
  std::string pattern = "*.*";
  bool withSubfolders = false;
};

struct ScanResult {
  QStringList files;  ///< from the scanned folder on
  std::uint64_t bytes = 0;
  std::string problem;  ///< why the list is incomplete; empty when it is not
};

class ScanSearch : public QObject {
  Q_OBJECT

 public:
  explicit ScanSearch(QObject* parent);
  /// Waits for nothing: a search that hangs ends by itself later.
  ~ScanSearch() override;

  /// Searches as `scan` says; an earlier search ends without a result. Raises std::system_error
  /// when the system has no thread to give.
  void Start(const FolderScan& scan, const std::string& productFolder);

 Q_SIGNALS:
  void Found(const ScanResult& result);

 private:
  struct Shared;

  std::shared_ptr<Shared> shared_;
};

}  // namespace pages
