#include "setup/Plan.h"

namespace setup {

const char* RuleText(CopyRule rule) {
  switch (rule) {
    case CopyRule::Add:
      return "bleibt";
    case CopyRule::ReplaceSafely:
      return "ersetzt (sicher)";
    case CopyRule::Copy:
      return "ersetzt";
  }
  return "";
}

}  // namespace setup
