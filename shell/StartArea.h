// The start page and the menu of recent products, with what they do.
#pragma once

#include <QObject>

#include "model/ModProjectOperations.h"
#include "shell/RecentProducts.h"
#include "tools/Dialogs.h"

class QBoxLayout;
class QToolButton;
class QWidget;

namespace shell {

class StartPage;

class StartArea : public QObject {
  Q_OBJECT

 public:
  struct Services {
    model::ModProjectOperations& operations;
    tools::Dialogs& dialogs;
    tools::Registry& registry;
  };

  /// `editor` is the pane of the pages; the start page is shown in its place. `layout` holds that
  /// pane and nothing else. What is given must outlive this object.
  StartArea(QBoxLayout& layout, QWidget& editor, QToolButton& openButton, Services services);

  /// The start page, which the layout keeps.
  [[nodiscard]] StartPage* Page() const;
  /// A product was opened: remembers it.
  void Remember(const std::string& product);
  enum class Editor {
    HasPages,         ///< nothing else is shown
    NothingSelected,  ///< a product is open
    NoProduct
  };
  /// Shows what belongs into the editor area while it has no pages.
  void Update(Editor editor);

 private:
  void Remove(const std::string& path);

  QBoxLayout& layout_;
  QWidget& editor_;
  Services services_;
  RecentProducts recent_;
  StartPage* page_;
};

}  // namespace shell
