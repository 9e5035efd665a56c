// Asks for a new product with the dialog frmNewProduct.
#pragma once

#include <QPointer>
#include <QWidget>

#include "model/MainView.h"
#include "tools/Dialogs.h"
#include "tools/registry/Registry.h"

namespace shell {

class NewProductDialog : public model::NewProductForm {
 public:
  /// The references must outlive this object.
  NewProductDialog(tools::Registry& registry, tools::Dialogs& dialogs)
      : registry_(registry), dialogs_(dialogs) {}

  /// The window that the dialog is shown over, which is made after this object.
  void SetParent(QWidget* parent) { parent_ = parent; }

  std::optional<model::NewProduct> Ask() override;

 private:
  tools::Registry& registry_;
  tools::Dialogs& dialogs_;
  QPointer<QWidget> parent_;
};

}  // namespace shell
