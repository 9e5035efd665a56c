// The dialog in which the user types a new value for one property.
#pragma once

#include <QDialog>

#include "grid/GridTexts.h"
#include "grid/KnownValues.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace grid {

/// Knows nothing of properties: the caller sets prompt and value, shows it modally, and reads
/// whether the user confirmed and what. Made afresh for each edit. It validates nothing.
///
/// Controls, in their tab order: `cmdReset`, `cmdCancel`, `cmdOK`, `txtNewValue`, `cmdBrowse` (only
/// for a value that can be browsed for), `txtOldValue`; the labels `lblNewValue`, `lblOldValue`,
/// `lblPrompt`. `txtNewValue` has the focus at first.
class frmEditProperty : public QDialog {
  Q_OBJECT

 public:
  explicit frmEditProperty(const GridTexts& texts, QWidget* parent = nullptr);

  /// True after OK; false before, after Cancel and after the close box.
  [[nodiscard]] bool Apply() const { return apply_; }

  /// The sentence above the fields.
  void SetPrompt(const QString& prompt) { prompt_ = prompt; }

  /// True when the user has touched the new value, be it to the same text.
  [[nodiscard]] bool IsEdited() const;

  /// What the new-value field shows as long as it is empty.
  void SetEmptyHint(const QString& hint);

  /// What the caller set; after OK, the text of the new-value field as it stands.
  [[nodiscard]] QString Value() const { return value_; }
  void SetValue(const QString& value) { value_ = value; }

  /// The text that the reset button puts into the new-value field, and whether that button is
  /// shown.
  void SetDefaultValue(const QString& value) { defaultValue_ = value; }
  void SetEnableDefaultValue(bool enable) { enableDefaultValue_ = enable; }

  /// What helps to choose the new value; set once, before the dialog is shown.
  void SetHelp(const ValueHelp& help);

  /// Fills the controls before they are first laid out.
  void setVisible(bool visible) override;

  /// Escape and the close box: as cmdCancel.
  void reject() override;

 protected:
  /// Fills the controls each time the dialog becomes the active window; a text typed already stays
  /// (the user may have been in another program to copy something).
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void ShowTexts(const GridTexts& texts);
  void LayOut();
  void Fill();
  void Reset();
  void Confirm();
  void Browse();

  QPushButton* cmdReset_;
  QPushButton* cmdCancel_ = nullptr;
  QPushButton* cmdOK_ = nullptr;
  QLineEdit* txtNewValue_;
  QPushButton* cmdBrowse_;
  QLineEdit* txtOldValue_;
  QLabel* lblNewValue_;
  QLabel* lblOldValue_;
  QLabel* lblPrompt_;

  QString knownValues_;  ///< what screen readers call their list
  std::function<QString()> browse_;
  QString prompt_;
  QString value_;
  QString defaultValue_;
  bool enableDefaultValue_ = false;
  bool apply_ = false;
};

}  // namespace grid
