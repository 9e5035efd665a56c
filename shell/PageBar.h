// A bar above the pages that says something of them and offers what can be done.
#pragma once

#include <QFrame>

class QHBoxLayout;
class QLabel;

namespace tools {
class LinkButton;
}

namespace shell {

/// Hidden at first.
class PageBar : public QFrame {
  Q_OBJECT

 public:
  PageBar(const QString& name, const QString& text, QWidget* parent);

  /// Adds a link behind the others, which the caller connects.
  tools::LinkButton* AddLink(const char* name, const QString& text);

 private:
  QHBoxLayout* layout_;
};

}  // namespace shell
