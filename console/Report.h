// Where packwright-build's messages go: lines for people, or JSON for programs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "console/ReportParts.h"
#include "engine/Build.h"
#include "model/ModProject.h"

namespace console {

/// What may be deleted to make room for a new setup.
enum class Replaceable { Nothing, EarlierSetup, Everything };

/// A build's observer that also says everything else that the program has to say.
class Report : public CallReport, public engine::BuildObserver {
 public:
  using CallReport::CallReport;

  /// What a build may delete in its output folder; without a call it is nothing.
  void Allow(Replaceable replaceable) { replaceable_ = replaceable; }
  bool MayEmptyOutputFolder(const std::string& folder) override;
  bool IsStopWanted() override { return IsInterrupted(); }

  /// How far a proof has come: thins out what it is told, and raises tools::Stopped.
  void OnProofProgress(const tools::Progress& progress);
  /// What --check found has been reported; `findings` of them.
  virtual void CheckEnd(std::size_t findings) = 0;
  /// The versions and components of a product. Raises tools::Stopped.
  virtual void Listing(const model::ModProject& project) = 0;
  /// The end of a build that reached its end.
  virtual void Summary(const engine::BuildSummary& summary) = 0;

 protected:
  using ComponentTeller = std::function<void(model::ComponentSlot slot, const std::string& title)>;
  /// Tells of each component of a version as it is read. Raises tools::Stopped.
  void ForEachComponent(const model::ModProject& project, model::VersionSlot version,
                        const ComponentTeller& tell) const;

 private:
  Replaceable replaceable_ = Replaceable::Nothing;
};

/// The size of what came out as a part of what went in; 1 when nothing went in.
[[nodiscard]] double Ratio(const tools::ArchiveTotals& totals);

}  // namespace console
