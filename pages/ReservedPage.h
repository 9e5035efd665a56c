// A page whose place in the row of pages is kept, without content so far.
#pragma once

#include "pages/EditorPage.h"

namespace pages {

/// Says in its empty area that it is reserved. It has no control and no setting.
class ReservedPage : public EditorPage {
  Q_OBJECT

 public:
  explicit ReservedPage(QWidget* parent);

  void ReadSettings() override {}

 protected:
  void WriteSettings() override {}
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace pages
