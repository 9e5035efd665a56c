#include "tools/desktop/BusyNotice.h"

#include <QCloseEvent>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <chrono>

#include "tools/StandardTexts.h"
#include "tools/desktop/FormStyle.h"
#include "tools/desktop/QtText.h"
#include "tools/desktop/UserInputBlocker.h"

namespace tools {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kFrameMargin = 18;    // pixels around the texts
constexpr int kSteps = 1000;        // of the progress bar
constexpr int kMinimumWidth = 340;  // pixels
constexpr auto kAppearing = 300ms;  // how long a window system may take to show a window

// How much of the work is done; negative when no total is known.
double DoneShare(const Progress& progress) {
  const bool byBytes = progress.bytesTotal > 0;
  const auto total = static_cast<double>(byBytes ? progress.bytesTotal : progress.filesTotal);
  const auto done = static_cast<double>(byBytes ? progress.bytesDone : progress.filesDone);
  return total > 0 ? std::min(1.0, done / total) : -1.0;
}

QString OfTotal(const QString& done, const QString& total, bool totalKnown) {
  return totalKnown ? u"%1 von %2"_s.arg(done, total) : done;
}

// "12 von 30 Dateien, 1,5 MB von 4,0 MB"; nothing is said of bytes that nobody counts.
QString ProgressText(const Progress& progress) {
  QString text =
      OfTotal(GermanNumber(static_cast<qlonglong>(progress.filesDone)),
              GermanNumber(static_cast<qlonglong>(progress.filesTotal)), progress.filesTotal > 0) +
      u" Dateien"_s;
  if (progress.bytesDone > 0 || progress.bytesTotal > 0) {
    text += u", "_s + OfTotal(SizeText(progress.bytesDone), SizeText(progress.bytesTotal),
                              progress.bytesTotal > 0);
  }
  return text;
}

// Makes the label as wide as its text, within the screen, and as high as the text is then.
void FitText(QLabel& label) {
  const int width = std::min(std::max(label.sizeHint().width(), kMinimumWidth),
                             label.screen()->availableGeometry().width() / 2);
  label.setText(WithBreaksInLongWords(label.text(), label.fontMetrics(), width));
  label.setWordWrap(true);
  label.setMinimumSize(width, label.heightForWidth(width));
}

}  // namespace

BusyNotice::BusyNotice(const QString& text, Buttons buttons, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      lblProgress_(new QLabel(this)),
      prgProgress_(new QProgressBar(this)) {
  setObjectName(u"busyNotice"_s);
  // The window it stands over keeps the keyboard.
  setAttribute(Qt::WA_ShowWithoutActivating);
  setWindowTitle(parent != nullptr ? parent->window()->windowTitle()
                                   : QGuiApplication::applicationDisplayName());
  setAccessibleName(text);
  setFont(FormFont());
  auto* lblText = new QLabel(text, this);
  lblText->setObjectName(u"lblText"_s);
  lblText->setTextFormat(Qt::PlainText);
  FitText(*lblText);
  lblProgress_->setObjectName(u"lblProgress"_s);
  lblProgress_->hide();
  prgProgress_->setObjectName(u"prgProgress"_s);
  prgProgress_->setAccessibleName(text);
  prgProgress_->setTextVisible(false);
  prgProgress_->hide();

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kFrameMargin, kFrameMargin, kFrameMargin, kFrameMargin);
  layout->addWidget(lblText);
  layout->addWidget(prgProgress_);
  layout->addWidget(lblProgress_);
  if (buttons == Buttons::Stop) {
    cmdStop_ = new QPushButton(ToQString(StandardText(kTextCancel)), this);
    cmdStop_->setObjectName(u"cmdStop"_s);
    connect(cmdStop_, &QPushButton::clicked, this, [this] { stopRequested_ = true; });
    layout->addSpacing(kFrameMargin / 2);
    layout->addWidget(cmdStop_, 0, Qt::AlignRight);
  }
  ShowAtOnce();
}

void BusyNotice::ShowProgress(const Progress& progress) {
  if (prgProgress_->isHidden()) {
    prgProgress_->show();
    lblProgress_->show();
    adjustSize();
  }
  const double share = DoneShare(progress);
  prgProgress_->setRange(0, share < 0 ? 0 : kSteps);
  if (share >= 0) prgProgress_->setValue(static_cast<int>(share * kSteps));
  lblProgress_->setText(ProgressText(progress));
  PaintNow();
}

void BusyNotice::Withdraw() {
  PaintWithoutUserInput();
  hide();
}

void BusyNotice::ShowAtOnce() {
  show();
  raise();  // some window managers put a window that takes no keyboard below the one that has it
  const QDeadlineTimer deadline(kAppearing);
  do {
    PaintNow();
  } while (!windowHandle()->isExposed() && !deadline.hasExpired());
}

void BusyNotice::closeEvent(QCloseEvent* event) { event->ignore(); }

void BusyNotice::PaintNow() {
  layout()->activate();  // the window grows before it is painted
  repaint();
  UserInputBlocker blocker;
  if (cmdStop_ != nullptr) {
    blocker.LetThrough(*this);
    connect(&blocker, &UserInputBlocker::EscapePressed, this, [this] { stopRequested_ = true; });
  }
  QCoreApplication::processEvents();
}

}  // namespace tools
