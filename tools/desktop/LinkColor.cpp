#include "tools/desktop/LinkColor.h"

#include <algorithm>
#include <cmath>

namespace tools {

namespace {

constexpr double kReadable = 4.5;  ///< contrast of text that WCAG 2 calls readable (level AA)
constexpr int kMixSteps = 10;

double Linear(int of255) {
  const double channel = of255 / 255.0;
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

// As WCAG 2 defines relative luminance and contrast.
double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.red()) + 0.7152 * Linear(color.green()) +
         0.0722 * Linear(color.blue());
}

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

QColor Mixed(const QColor& link, const QColor& text, int steps) {
  const auto mix = [steps](int a, int b) { return a + (b - a) * steps / kMixSteps; };
  return {mix(link.red(), text.red()), mix(link.green(), text.green()),
          mix(link.blue(), text.blue())};
}

}  // namespace

QColor LinkColor(const QColor& link, const QColor& text, const QColor& ground) {
  for (int steps = 0; steps < kMixSteps; ++steps) {
    const QColor color = Mixed(link, text, steps);
    if (Contrast(color, ground) >= kReadable) return color;
  }
  return text;
}

}  // namespace tools
