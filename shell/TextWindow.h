// A window to read a longer text in.
#pragma once

#include <QDialog>
#include <QString>

namespace shell {

/// Shows lines of text as they are, none of them broken. Closes by Escape or `cmdClose`.
class TextWindow : public QDialog {
  Q_OBJECT

 public:
  TextWindow(const QString& title, const QString& text, QWidget* parent);
};

}  // namespace shell
