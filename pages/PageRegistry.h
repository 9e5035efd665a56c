// Pages by class name: the host creates each page of a node's list from its name.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "model/ModProject.h"
#include "pages/EditorPage.h"
#include "tools/Dialogs.h"
#include "tools/registry/Registry.h"

namespace pages {

/// What pages work with besides their host. The references outlive every page.
struct PageServices {
  model::ModProject& project;
  tools::Dialogs& dialogs;
  tools::Registry& registry;
};

class PageRegistry {
 public:
  using Factory = std::function<EditorPage*(const PageServices& services, QWidget* parent)>;

  /// Makes a page available under the class name "Packwright." and `name`.
  void Add(const std::string& name, Factory factory);

  /// A new page; `parent` owns it. Raises tools::Error for a class name that is not registered.
  [[nodiscard]] EditorPage* Create(const std::string& className, const PageServices& services,
                                   QWidget* parent) const;

 private:
  std::map<std::string, Factory> factories_;
};

/// All pages of this program.
[[nodiscard]] PageRegistry AllPages();

}  // namespace pages
