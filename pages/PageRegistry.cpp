#include "pages/PageRegistry.h"

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

constexpr std::string_view kClassPrefix = "Packwright.";

template <typename Page>
EditorPage* Make(const PageServices& services, QWidget* parent) {
  return new Page(services, parent);
}

}  // namespace

void PageRegistry::Add(const std::string& name, Factory factory) {
  factories_.insert_or_assign(std::string(kClassPrefix).append(name), std::move(factory));
}

EditorPage* PageRegistry::Create(const std::string& className, const PageServices& services,
                                 QWidget* parent) const {
  const auto factory = factories_.find(className);
  if (factory == factories_.end()) {
    throw tools::Error("Die Seite kann nicht erzeugt werden, ihre Klasse ist unbekannt: " +
                       className);
  }
  return factory->second(services, parent);
}

PageRegistry AllPages() {
  PageRegistry registry;
  registry.Add("tabProductDetails", Make<tabProductDetails>);
  registry.Add("tabVersionDetails", Make<tabVersionDetails>);
  registry.Add("tabFeatures", Make<tabFeatures>);
  registry.Add("tabSetupProcedure", Make<tabSetupProcedure>);
  registry.Add("tabBuildOptions", Make<tabBuildOptions>);
  registry.Add("tabTesselRegistration", Make<tabTesselRegistration>);
  registry.Add("tabFileList", Make<tabFileList>);
  registry.Add("tabRegistryEditor", Make<tabRegistryEditor>);
  return registry;
}

}  // namespace pages
