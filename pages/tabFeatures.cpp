#include "pages/tabFeatures.h"

#include "model/TextTable.h"

namespace pages {

tabFeatures::tabFeatures(const PageServices& /*services*/, QWidget* parent)
    : ReservedPage(parent) {}

std::string tabFeatures::Title() const { return model::LoadText(model::Text::FeaturesPage); }

}  // namespace pages
