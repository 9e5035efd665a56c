// The list in which the author reads what a check or a build found, and from which he goes to the
// place concerned.
#pragma once

#include <QTreeWidget>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/BuildObserver.h"
#include "model/Slots.h"

namespace findings {

/// A place in a version that its author wants to see.
struct ChosenPlace {
  model::ComponentSlot component = 0;  ///< 0 when no place was chosen
  std::int32_t entry = 0;              ///< the entry's number in it when it was found; 0: none
  std::string entryId{};  ///< tells the entry whatever its number is now; empty: it has none
};

/// One row for each finding: icon and component, entry, text. A double click or Enter chooses the
/// place of a row that has one.
class FindingsList : public QTreeWidget {
  Q_OBJECT

 public:
  /// Its objectName is "lsvFindings".
  explicit FindingsList(QWidget* parent);

  /// Shows these findings in place of the former ones; a last row counts `further` ones that were
  /// not kept.
  void Show(const std::vector<engine::BuildMessage>& messages, std::uint64_t further = 0);

  /// The height (pixels) at which so many rows are seen whole.
  [[nodiscard]] int HeightOf(int rows) const;
  /// Room for the rows, for a few of many.
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

  /// "2 Fehler, 1 Warnung", or that there is none.
  [[nodiscard]] static QString Summary(const std::vector<engine::BuildMessage>& messages);

 Q_SIGNALS:
  void PlaceChosen(const ChosenPlace& place);

 private:
  void ChoosePlace(const QTreeWidgetItem& row);
};

}  // namespace findings
