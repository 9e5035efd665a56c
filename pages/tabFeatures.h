// A version's page of setup types. It holds no data yet: its place in the row of pages is kept.
#pragma once

#include "pages/PageRegistry.h"
#include "pages/ReservedPage.h"

namespace pages {

class tabFeatures : public ReservedPage {
  Q_OBJECT

 public:
  tabFeatures(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
};

}  // namespace pages
