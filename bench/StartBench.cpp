// How long the desktop program takes from its start to its window, beside a bare Qt window.
//
//   start_bench [RUNS]
//
// Both are started in turn; the medians and their ratio are printed.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kRuns = 21;

/// Milliseconds from the start of a program beside this one to its end; negative when it fails.
double TimeOf(const QString& program) {
  QElapsedTimer timer;
  timer.start();
  const int exitCode = QProcess::execute(
      QCoreApplication::applicationDirPath() + QLatin1Char('/') + program, QStringList());
  return exitCode == 0 ? static_cast<double>(timer.nsecsElapsed()) / 1e6 : -1;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const int runs = arguments.size() > 1 ? std::max(1, arguments.at(1).toInt()) : kRuns;
  std::vector<double> bare;
  std::vector<double> program;
  for (int run = -1; run < runs; ++run) {
    const double bareTime = TimeOf(QStringLiteral("bare_window"));
    const double programTime = TimeOf(QStringLiteral("program_window"));
    if (bareTime < 0 || programTime < 0) {
      std::fputs("start_bench: a program did not come to its window\n", stderr);
      return 1;
    }
    if (run < 0) continue;  // fills the system's caches
    bare.push_back(bareTime);
    program.push_back(programTime);
  }
  std::printf("bare Qt window: %.1f ms\npackwright: %.1f ms\nratio: %.2f\n", Median(bare),
              Median(program), Median(program) / Median(bare));
  return 0;
}
