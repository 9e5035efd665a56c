#include "shell/PageBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

#include "tools/desktop/LinkButton.h"

namespace shell {

PageBar::PageBar(const QString& name, const QString& text, QWidget* parent)
    : QFrame(parent), layout_(new QHBoxLayout(this)) {
  setObjectName(name);
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* icon = new QLabel(this);
  icon->setPixmap(style()
                      ->standardIcon(QStyle::SP_MessageBoxInformation)
                      .pixmap(style()->pixelMetric(QStyle::PM_SmallIconSize)));
  auto* label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setForegroundRole(QPalette::ToolTipText);
  setAccessibleName(text);
  layout_->addWidget(icon);
  layout_->addWidget(label, 1);
  hide();
}

tools::LinkButton* PageBar::AddLink(const char* name, const QString& text) {
  auto* link = new tools::LinkButton(text, this);
  link->setObjectName(QString::fromLatin1(name));
  link->setAccessibleDescription(accessibleName());
  layout_->addWidget(link);
  return link;
}

}  // namespace shell
