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

  /// Makes a page available under the name of its class; `chapter` is the guide's chapter on it.
  void Add(const std::string& name, Factory factory, const std::string& chapter = {});

  /// A new page of the class "Packwright." and `name`; `parent` owns it. Raises tools::Error for a
  /// name that is not registered.
  [[nodiscard]] EditorPage* Create(const std::string& name, const PageServices& services,
                                   QWidget* parent) const;
  /// The name of the guide's chapter on a page; empty where it has none of its own.
  [[nodiscard]] std::string GuideChapter(const EditorPage& page) const;

 private:
  struct Page {
    std::string chapter;
    Factory factory;
  };
  std::map<std::string, Page> pages_;
};

/// All pages of this program.
[[nodiscard]] PageRegistry AllPages();

}  // namespace pages
