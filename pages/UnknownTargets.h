// The dialog that gives entries of unknown destination folders a folder that there is.
#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

#include "model/FileEntries.h"

class QComboBox;
class QPushButton;
class QTreeWidget;

namespace pages {

/// `lsvEntries` with all such entries, selected at first; `cmbTarget`; `cmdOK`, `cmdCancel`.
class UnknownTargets : public QDialog {
  Q_OBJECT

 public:
  UnknownTargets(const model::FileEntries& entries, QWidget* parent);

  /// The IDs of the selected entries, and the folder chosen for them.
  [[nodiscard]] std::vector<std::string> Chosen() const;
  [[nodiscard]] std::int32_t Target() const;

 private:
  void ListEntries(const model::FileEntries& entries);

  QTreeWidget* lsvEntries;
  QComboBox* cmbTarget;
  std::vector<std::string> ids_;  ///< by row
};

}  // namespace pages
