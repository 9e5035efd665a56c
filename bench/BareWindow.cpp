// The least that a Qt program with a window can be; StartBench compares with it.
#include "bench/QuitWhenPainted.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(1000, 640);
  new bench::QuitWhenPainted(window);
  window.show();
  return QApplication::exec();
}
