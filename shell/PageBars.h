// The bars above the pages, and when they show: a version has no components yet, another program
// has changed the file of the open pages, or the file is gone.
#pragma once

#include <QFrame>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "shell/NodeKey.h"
#include "tools/files/Files.h"

class QHBoxLayout;
class QLabel;
class QVBoxLayout;
class QWidget;

namespace tools {
class LinkButton;
}

namespace shell {

class EditorTabs;
class ProjectTree;

/// A bar that says something of the pages and offers what can be done. Hidden at first.
class PageBar : public QFrame {
  Q_OBJECT

 public:
  PageBar(const QString& name, const QString& text, QWidget* parent);

  void SetText(const QString& text);

  /// Adds a link behind the others, which the caller connects.
  tools::LinkButton* AddLink(const char* name, const QString& text);

 Q_SIGNALS:
  /// It hides now, and one of its links has the focus.
  void FocusLost();

 public Q_SLOTS:
  void setVisible(bool visible) override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QHBoxLayout* layout_;
  QLabel* icon_;
  QLabel* label_;
};

class PageBars : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    std::function<void(model::VersionSlot version)> takeOver;
    std::function<void(model::VersionSlot version)> addComponent;
    std::function<void()> reload;
  };

  /// Puts the bars at the end of `layout`. Files are compared whenever `window` is activated. What
  /// is given must outlive this object; the actions must not raise errors.
  PageBars(QVBoxLayout& layout, QWidget& window, ProjectTree& tree, EditorTabs& pages,
           Actions actions);

  /// The pages of this node have just been read.
  void PagesRead(const Node& node);
  /// Components may have been added or removed.
  void TreeChanged();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  PageBar* AddBar(QVBoxLayout& layout, const char* name, const QString& text);
  void LookAtFile();
  void ShowWhetherMissing();
  void PagesSaved();

  ProjectTree& tree_;
  EditorTabs& pages_;
  PageBar* noComponents_;
  PageBar* fileChanged_;
  PageBar* nodeMissing_;
  Node node_;
  struct Paths {
    std::string file;  ///< the pages' one; empty without pages
    std::string product;
  } paths_;
  /// The two files as they were compared last.
  std::optional<std::pair<tools::FileStamp, tools::FileStamp>> seen_;
};

}  // namespace shell
