// The product's page: its title, author and web site.
#pragma once

#include "grid/ctlPropertyEditor.h"
#include "pages/PageRegistry.h"

namespace pages {

/// Reads and writes "Title", "Author" and "AuthorHomepage" of the product file's section "Product".
/// The row of the product's GUID has no setting behind it: it is empty after reading and what is
/// typed into it is not stored.
class tabProductDetails : public EditorPage {
  Q_OBJECT

 public:
  tabProductDetails(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  void ReadSettings() override;

 protected:
  void WriteSettings() override;

 private:
  grid::ctlPropertyEditor* propsProduct;
};

}  // namespace pages
