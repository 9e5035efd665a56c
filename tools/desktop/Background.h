// Work that may take long, such as a look at a slow network folder, beside the event loop.
#pragma once

#include <QObject>
#include <functional>

namespace tools {

/// Runs `work` in a thread of its own, and then what it returns in the event loop of `receiver`,
/// unless that is gone by then. Nobody waits for the thread, not at the program's end either: it
/// must refer to nothing but what it holds itself. `work` must not raise errors.
void RunInBackground(QObject& receiver, std::function<std::function<void()>()> work);

}  // namespace tools
