// The property grid that the editor pages embed: a row per property, its name on the left and its
// value on the right.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "grid/GridTexts.h"
#include "grid/KnownValues.h"
#include "tools/Dialogs.h"

class QTreeView;

namespace grid {

class PropertyRows;

/// How the host wants the edit of a row carried out. Any value but the first two counts as Handled.
enum class EditReaction : std::int32_t {
  Dialog = 1,       ///< the grid opens its edit dialog
  NotEditable = 2,  ///< the grid tells the user that this value cannot be edited
  Handled = 0,      ///< the host has edited the value itself
};

/// All values are text that the grid does not interpret; what a property means, and whether it may
/// be edited, is its host's business. A double click on a row (or the host, by EditProperty) begins
/// an edit; no key does. The list view is named `lsvProps`. `Enabled`, font and colours are set on
/// the control as on any widget and hold for the list.
class ctlPropertyEditor : public QWidget {
  Q_OBJECT

 public:
  /// Asked when an edit of the row `key` begins. The handler may rewrite `value` (which becomes the
  /// row's value, or the text that the dialog starts from) and `reaction` (Dialog when it is
  /// called).
  using EditPropertyHandler =
      std::function<void(const QString& key, QString& value, EditReaction& reaction)>;
  /// Told after a row's value has changed.
  using PropertyChangedHandler = std::function<void(const QString& key, const QString& newValue)>;

  /// Tells what helps to choose the value of the row `key`.
  using ValueHelper = std::function<ValueHelp(const QString& key)>;

  /// `dialogs` shows the grid's messages and must outlive it.
  ctlPropertyEditor(tools::Dialogs& dialogs, GridTexts texts, QWidget* parent = nullptr);

  /// The host's handlers of the events EditProperty and PropertyChanged. They are not signals
  /// because they may raise errors, which Qt does not let through a signal: the error ends the edit
  /// or the SetProperty that raised the event. After a double click it becomes a message box.
  void OnEditProperty(EditPropertyHandler handler);
  void OnPropertyChanged(PropertyChangedHandler handler);

  /// Rows that are added or changed from now on show what their values mean, and the edit dialog
  /// proposes the known ones.
  void OnValueHelp(ValueHelper helper);

  /// Adds a row at the end; nothing happens when `key` or `title` is empty. One ":" at the end of
  /// the title is cut off. `dataType` and `readOnly` have no effect: only the host's answer to
  /// EditProperty decides. Raises tools::Error when the key is present already.
  void AddProperty(const QString& key, const QString& title, const QString& initialValue,
                   std::int32_t dataType = 0, bool readOnly = false);

  /// Adds a row as AddProperty does, whose value stands for several ones that differ. It is empty,
  /// and stays so until one value for all of them is set, which may be the empty one.
  void AddMixedProperty(const QString& key, const QString& title);

  /// Removes the row; an unknown key does nothing.
  void RemoveProperty(const QString& key);

  /// Changes the row's value and raises PropertyChanged if the new one differs (exactly compared;
  /// any does from a mixed one).
  /// Raises tools::Error for an unknown key.
  void SetProperty(const QString& key, const QString& newValue);

  /// The row's value; empty for an unknown key.
  [[nodiscard]] QString GetProperty(const QString& key) const;

  /// The key of the selected row; empty when none is selected.
  [[nodiscard]] QString SelectedProperty() const;
  /// Selects the row and brings it into view, so that a host that has filled the grid anew leaves
  /// the user where he was; an unknown key selects nothing.
  void SelectProperty(const QString& key);

  /// Whether rows that are added or changed from now on get tooltips; false at first.
  [[nodiscard]] bool ShowTooltips() const { return showTooltips_; }
  void SetShowTooltips(bool show) { showTooltips_ = show; }

  /// Removes every row; raises no event.
  void Clear();

  /// Edits the row as the host answers: in the dialog, not at all, or by the host itself; then
  /// applies the outcome by SetProperty. An unknown key does nothing. Raises what the host's
  /// handlers raise.
  void EditProperty(const QString& key);

  /// The keys of all rows in their order, joined by "; ".
  [[nodiscard]] QString ListPropertyNames() const;

  QSize sizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  // What the user does with the list, passed on unchanged. Handlers must not raise errors
  // (tools/desktop/Guard.h). Positions are pixels within the list's rows, without its header.
  void Click();
  void KeyDown(Qt::Key keyCode, Qt::KeyboardModifiers shift);
  void KeyPress(char16_t character);  ///< one for each UTF-16 unit that the key typed
  void KeyUp(Qt::Key keyCode, Qt::KeyboardModifiers shift);
  void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, float x, float y);
  void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, float x, float y);
  void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, float x, float y);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void EditRow(const QModelIndex& index);
  /// The text that the user confirmed; none when cancelled, or when a mixed value was left alone.
  [[nodiscard]] std::optional<QString> AskForValue(const QString& key, const QString& value);
  void ShowNotEditable();
  [[nodiscard]] ValueHelp HelpFor(const QString& key) const;
  [[nodiscard]] QString MeaningOf(const QString& key, const QString& value) const;
  /// The row with that key; raises tools::Error when there is none.
  [[nodiscard]] int ExistingRow(const QString& key) const;
  void PassOnKey(const QEvent& event);
  void PassOnMouse(const QEvent& event);

  tools::Dialogs& dialogs_;
  GridTexts texts_;
  PropertyRows* rows_;
  QTreeView* lsvProps_;
  EditPropertyHandler onEditProperty_;
  PropertyChangedHandler onPropertyChanged_;
  ValueHelper valueHelper_;
  bool showTooltips_ = false;
  bool styled_ = false;  ///< the list has its style, since the first showing
};

}  // namespace grid
