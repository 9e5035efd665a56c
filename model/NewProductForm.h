// Asks for what a new product needs.
#pragma once

#include <optional>
#include <string>

namespace model {

struct NewProduct {
  std::string title;
  std::string author;
  std::string fileName;  ///< full path of the product file
};

class NewProductForm {
 public:
  virtual ~NewProductForm() = default;
  NewProductForm() = default;
  NewProductForm(const NewProductForm&) = delete;
  NewProductForm& operator=(const NewProductForm&) = delete;

  /// Shows the form; nothing when the user cancelled.
  virtual std::optional<NewProduct> Ask() = 0;
};

}  // namespace model
