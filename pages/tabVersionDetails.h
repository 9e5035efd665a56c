// A version's first page: its number in three parts, and a grid for properties to come.
#pragma once

#include "grid/ctlPropertyEditor.h"
#include "pages/PageRegistry.h"

class QGroupBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;

namespace pages {

/// Shows the version number; nothing on this page changes it or any other setting.
class tabVersionDetails : public EditorPage {
  Q_OBJECT

 public:
  tabVersionDetails(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  void ReadSettings() override;

 protected:
  void WriteSettings() override {}

 private:
  void BuildNumber(QHBoxLayout& layout);
  void BuildProperties(tools::Dialogs& dialogs);

  const model::ModProject& project_;
  QLabel* lblVersionMaj = nullptr;
  QLineEdit* txtVersionMaj = nullptr;
  QLabel* lblVersionMin = nullptr;
  QLineEdit* txtVersionMin = nullptr;
  QLabel* lblVersionRev = nullptr;
  QLineEdit* txtVersionRev = nullptr;
  QGroupBox* fraProperties = nullptr;
  grid::ctlPropertyEditor* propsVersion = nullptr;
};

}  // namespace pages
