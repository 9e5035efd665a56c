#include "pages/tabSetupProcedure.h"

#include "model/TextTable.h"

namespace pages {

tabSetupProcedure::tabSetupProcedure(const PageServices& /*services*/, QWidget* parent)
    : ReservedPage(parent) {}

std::string tabSetupProcedure::Title() const {
  return model::LoadText(model::Text::SetupProcedurePage);
}

}  // namespace pages
