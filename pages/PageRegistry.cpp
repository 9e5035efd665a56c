#include "pages/PageRegistry.h"

#include <type_traits>
#include <utility>

#include "pages/tabBuildOptions.h"
#include "pages/tabFeatures.h"
#include "pages/tabFileList.h"
#include "pages/tabProductDetails.h"
#include "pages/tabRegistryEditor.h"
#include "pages/tabSetupProcedure.h"
#include "pages/tabTesselRegistration.h"
#include "pages/tabVersionDetails.h"
#include "tools/Error.h"

namespace pages {

namespace {

std::string NameOf(const QMetaObject& pageClass) {
  const std::string_view qualified = pageClass.className();
  return std::string(qualified.substr(qualified.rfind(':') + 1));
}

// Q_OBJECT gives each class a member of its own in place of the inherited one.
template <typename Page>
constexpr bool kHasQObjectMacro =
    std::is_same_v<decltype(&Page::qt_metacall), int (Page::*)(QMetaObject::Call, int, void**)>;

template <typename Page>
void Add(PageRegistry& registry, const char* chapter) {
  static_assert(kHasQObjectMacro<Page>, "a page is known by its class name: it needs Q_OBJECT");
  const auto make = [](const PageServices& services, QWidget* parent) -> EditorPage* {
    return new Page(services, parent);
  };
  registry.Add(NameOf(Page::staticMetaObject), make, chapter);
}

}  // namespace

void PageRegistry::Add(const std::string& name, Factory factory, const std::string& chapter) {
  pages_.insert_or_assign(name, Page{.chapter = chapter, .factory = std::move(factory)});
}

EditorPage* PageRegistry::Create(const std::string& name, const PageServices& services,
                                 QWidget* parent) const {
  const auto page = pages_.find(name);
  if (page == pages_.end()) {
    throw tools::Error(
        "Die Seite kann nicht erzeugt werden, ihre Klasse ist unbekannt: Packwright." + name);
  }
  return page->second.factory(services, parent);
}

std::string PageRegistry::GuideChapter(const EditorPage& page) const {
  const auto found = pages_.find(NameOf(*page.metaObject()));
  return found == pages_.end() ? std::string() : found->second.chapter;
}

PageRegistry AllPages() {
  PageRegistry registry;
  Add<tabProductDetails>(registry, "produkt");
  Add<tabVersionDetails>(registry, "version");
  Add<tabFeatures>(registry, "setup-typen");
  Add<tabSetupProcedure>(registry, "installationsablauf");
  Add<tabBuildOptions>(registry, "erstellungs-optionen");
  Add<tabTesselRegistration>(registry, "tessel-datenbank");
  Add<tabFileList>(registry, "dateien");
  Add<tabRegistryEditor>(registry, "registrierung");
  return registry;
}

}  // namespace pages
