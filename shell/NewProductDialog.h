// Asks for a new product with the dialog frmNewProduct.
#pragma once

#include <QWidget>

#include "model/MainView.h"
#include "tools/Dialogs.h"
#include "tools/registry/Registry.h"

namespace shell {

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
