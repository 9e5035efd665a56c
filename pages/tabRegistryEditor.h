// A component's page of registry keys and values.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "grid/ctlPropertyEditor.h"
#include "model/RegistryKeys.h"
#include "model/TextTable.h"
#include "pages/PageRegistry.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QListView;
class QPushButton;
class QStringListModel;

namespace pages {

/// Browses keys as a registry editor does and shows the values that the component declares for the
/// key it is at. The machine's registry only offers names and is never written. What is typed lives
/// in the grid until the next navigation, which writes it to the component's file at once; typing
/// alone therefore does not make the page dirty. The path box lists the keys that are stored.
///
/// The names of a key's values come from the grid as one text with ";" between them: a name that
/// holds a ";" outside double quotes falls apart into names without a value.
class tabRegistryEditor : public EditorPage {
  Q_OBJECT

 public:
  tabRegistryEditor(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  /// Shows HKEY_LOCAL_MACHINE.
  void ReadSettings() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void WriteSettings() override;
  /// Returns to the top level.
  void SettingsWritten() override;
  [[nodiscard]] bool HoldsQuietEdits() const override { return ValuesInGrid() != shownValues_; }

 private:
  QWidget* BuildPath();
  void BuildSubkeys();
  void BuildValues();
  void ConnectEvents();

  [[nodiscard]] std::string FilePath() const;
  /// Writes the shown values and goes to the key that the author typed or chose. When the write
  /// fails, the page stays where it was.
  void Navigate(const std::string& path);
  /// The values in the grid that are to be stored, and those stored ones that it cannot show. What
  /// nobody edited comes with the very bytes that are stored.
  [[nodiscard]] std::vector<model::RegistryValue> ValuesInGrid() const;
  /// The names of the values in the grid that are to be stored.
  [[nodiscard]] std::vector<std::string> NamesToStore() const;
  /// Shows a key, or the top level for a path that begins with no hive, without writing anything
  /// before. What reading raises leaves the page as it was.
  void Show(const std::string& path);
  void ShowPath(const std::vector<std::string>& paths);
  /// Shows in the box the path whose values the grid shows.
  void ShowCurrentPath();
  [[nodiscard]] static QStringList Hives();
  [[nodiscard]] QStringList EntriesOf(tools::RegistryRoot root, const std::string& subkey) const;
  void ShowValues(const std::vector<model::RegistryValue>& values);
  void ShowValue(const model::RegistryValue& value);

  void OpenEntry(const std::string& text);
  void OpenNewKey();
  void RemoveAllValues();
  void AddValue();
  void RemoveValue();
  void Warn(model::Text text, model::Text caption);

  const model::ModProject& project_;
  tools::Dialogs& dialogs_;
  tools::Registry& registry_;
  model::RegistryKeys keys_;
  std::string currentPath_;  ///< of the key whose values are in the grid; empty at the top level
  std::map<std::string, model::RegistryValue> storedValues_;  ///< by the name that the grid shows
  std::vector<model::RegistryValue> hiddenValues_;  ///< stored values that the grid cannot show
  std::vector<model::RegistryValue> shownValues_;   ///< what ValuesInGrid gave before any edit
  QStringListModel* subkeys_;

  QLabel* lblRegPath;
  QComboBox* cmbRegPath;
  QGroupBox* fraSubkeys;
  QListView* lstSubkeys;
  QGroupBox* fraValues;
  grid::ctlPropertyEditor* propRegValues;
  QPushButton* cmdAddValue;
  QPushButton* cmdRemoveValue;
};

}  // namespace pages
