// The dialog that asks for the title, the author and the file name of a new product.
#pragma once

#include <QDialog>

#include "model/MainView.h"
#include "tools/Dialogs.h"
#include "tools/registry/Registry.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace shell {

/// Proposes a file name from the title as the user types, and the author of the last product. It
/// creates nothing itself. The close box and Escape are cmdCancel.
class frmNewProduct : public QDialog {
  Q_OBJECT

 public:
  /// `registry` holds the last author. The references must outlive the dialog.
  frmNewProduct(tools::Registry& registry, tools::Dialogs& dialogs, QWidget* parent);

  /// True only after cmdOK was pressed.
  [[nodiscard]] bool Confirmed() const { return confirmed_; }
  [[nodiscard]] QString ProductTitle() const;
  [[nodiscard]] QString Author() const;
  [[nodiscard]] QString FileName() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildControls();
  void ProposeFileName(const QString& title);
  void Confirm();

  tools::Registry& registry_;
  tools::Dialogs& dialogs_;
  bool confirmed_ = false;

  QLabel* lblProductTitle = nullptr;
  QLineEdit* txtProductTitle = nullptr;
  QLabel* lblAuthor = nullptr;
  QLineEdit* txtAuthor = nullptr;
  QLabel* lblProductFile = nullptr;
  QLineEdit* txtFilename = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdCancel = nullptr;
};

/// Asks for a new product with frmNewProduct.
class NewProductDialog : public model::NewProductForm {
 public:
  /// The dialog is shown over `parent`. The references must outlive this object.
  NewProductDialog(tools::Registry& registry, tools::Dialogs& dialogs, QWidget& parent)
      : registry_(registry), dialogs_(dialogs), parent_(parent) {}

  std::optional<model::NewProduct> Ask() override;

 private:
  tools::Registry& registry_;
  tools::Dialogs& dialogs_;
  QWidget& parent_;
};

}  // namespace shell
