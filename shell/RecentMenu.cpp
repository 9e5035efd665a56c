#include "shell/RecentMenu.h"

#include <QKeyEvent>
#include <QScreen>
#include <QTextDocument>
#include <QToolButton>
#include <algorithm>
#include <utility>

#include "model/TextTable.h"
#include "shell/RecentProducts.h"
#include "tools/desktop/Background.h"
#include "tools/desktop/QtText.h"

namespace shell {

using model::Text;

RecentMenu::RecentMenu(QToolButton& button, std::function<std::vector<std::string>()> paths)
    : QMenu(&button), button_(button), paths_(std::move(paths)) {
  setObjectName(QStringLiteral("mnuRecent"));
  setTitle(tools::ToQString(model::LoadText(Text::RecentProducts)));
  button.setMenu(this);
  button.setPopupMode(QToolButton::MenuButtonPopup);
  button.installEventFilter(this);
  connect(this, &QMenu::aboutToShow, this, &RecentMenu::Fill);
}

bool RecentMenu::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &button_ && event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
    button_.showMenu();
    return true;
  }
  return QMenu::eventFilter(watched, event);
}

void RecentMenu::Fill() {
  clear();
  setToolTipsVisible(false);
  // What is found for the products shown before must not be shown here too.
  delete filling_;
  filling_ = new QObject(this);
  const std::vector<std::string> paths = paths_();
  const int widest = button_.screen()->availableSize().width() * 3 / 4;
  int number = 0;
  for (const std::string& path : paths) {
    const QString whole = tools::ToQString(path);
    // A path is known by its end. The numbers are the keys; an "&" in a path is a letter.
    const QString text = fontMetrics().elidedText(whole, Qt::ElideMiddle, widest);
    QString caption = text;
    caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* entry = addAction(QStringLiteral("&%1  ").arg(++number % 10) + caption);
    entry->setToolTip(Qt::convertFromPlainText(whole));
    if (text != whole) setToolTipsVisible(true);
    entry->setData(whole);
    connect(entry, &QAction::triggered, this, [this, path] { Q_EMIT ProductWanted(path); });
  }
  if (number == 0) {
    addAction(tools::ToQString(model::LoadText(Text::NoRecentProducts)))->setEnabled(false);
    return;
  }
  tools::RunInBackground(*filling_, [this, paths]() -> std::function<void()> {
    return [this, missing = MissingProducts(paths)] { ShowMissing(missing); };
  });
}

void RecentMenu::ShowMissing(const std::vector<std::string>& missing) {
  if (missing.empty()) return;
  for (QAction* entry : actions()) {
    const std::string path = tools::ToUtf8(entry->data().toString());
    if (std::find(missing.begin(), missing.end(), path) != missing.end()) entry->setEnabled(false);
  }
  addSeparator();
  connect(addAction(tools::ToQString(model::LoadText(Text::RemoveMissing))), &QAction::triggered,
          this, [this, missing] {
            for (const std::string& path : missing) Q_EMIT RemovalWanted(path);
          });
}

}  // namespace shell
