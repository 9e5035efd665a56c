#include "app/EndSignals.h"

namespace app {

struct EndSignals::Pipe {};

EndSignals::EndSignals(std::function<void()> /*onEnd*/) {}

EndSignals::~EndSignals() = default;

}  // namespace app
