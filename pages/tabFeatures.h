// A version's page of setup types. It holds no data yet: its place in the row of pages is kept.
#pragma once

#include "pages/PageRegistry.h"

namespace pages {

class tabFeatures : public EditorPage {
  Q_OBJECT

 public:
  tabFeatures(const PageServices& services, QWidget* parent);

  [[nodiscard]] std::string Title() const override;
  void ReadSettings() override {}

 protected:
  void WriteSettings() override {}
};

}  // namespace pages
