// The dialog that gives entries of unknown destination folders a known one.
#pragma once

#include <QDialog>
#include <cstdint>
#include <string>
#include <vector>

#include "model/FileEntries.h"
#include "pages/FileListDocument.h"

class QComboBox;
class QPushButton;
class QTreeWidget;

namespace pages {

/// `lsvEntries` with all such entries; `cmbTarget`; `cmdOK`, `cmdCancel`.
class UnknownTargets : public QDialog {
  Q_OBJECT

 public:
  /// At first that one of the entries is selected, or all of them where it is null.
  UnknownTargets(const model::FileEntries& entries, const model::ICFile* wanted, QWidget* parent);

  /// The edits that give the selected entries the chosen folder.
  [[nodiscard]] std::vector<FieldEdit> Edits() const;

 private:
  void ListEntries(const model::FileEntries& entries, const model::ICFile* wanted);

  QTreeWidget* lsvEntries;
  QComboBox* cmbTarget;
  std::vector<std::string> ids_;  ///< by row
};

/// Shows the dialog; no edits when the author cancels.
[[nodiscard]] std::vector<FieldEdit> AskForTargets(const model::FileEntries& entries,
                                                   const model::ICFile* wanted, QWidget* parent);

}  // namespace pages
