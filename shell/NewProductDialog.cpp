#include "shell/NewProductDialog.h"

#include "shell/frmNewProduct.h"
#include "tools/desktop/QtText.h"

namespace shell {

std::optional<model::NewProduct> NewProductDialog::Ask() {
  frmNewProduct form(registry_, dialogs_, &parent_);
  form.exec();
  if (!form.Confirmed()) return std::nullopt;
  return model::NewProduct{.title = tools::ToUtf8(form.ProductTitle()),
                           .author = tools::ToUtf8(form.Author()),
                           .fileName = tools::ToUtf8(form.FileName())};
}

}  // namespace shell
