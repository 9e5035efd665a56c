// Finds out in the background which sources are not there: a network folder may take minutes to
// answer.
#pragma once

#include <QObject>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pages {

/// What an entry takes its files from.
struct SourcePlace {
  std::string id;                   ///< of the entry
  std::string folder;               ///< as stored
  std::optional<std::string> name;  ///< of the file; without one the folder itself is looked for
};

struct SourceState {
  std::string id;
  bool missing = false;  ///< also what cannot be reached
};

class SourceCheck : public QObject {
  Q_OBJECT

 public:
  explicit SourceCheck(QObject* parent);
  /// Waits for nothing: a look that hangs ends by itself later.
  ~SourceCheck() override;

  /// Looks for these and gives up those of an earlier call. Relative folders are taken from
  /// `productFolder`. Raises std::system_error when the system has no thread to give.
  void Start(std::vector<SourcePlace> places, std::string productFolder);

 Q_SIGNALS:
  /// A part of the results; comes several times.
  void Found(const std::vector<SourceState>& states);

 private:
  struct Shared;
  class Worker;

  std::shared_ptr<Shared> shared_;
};

}  // namespace pages
