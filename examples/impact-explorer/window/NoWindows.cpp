#include "WindowOptions.h"

namespace explorer {

bool canShowWindows() {
  return false;
}

int runWindows(int, char**, const WindowOptions&) {
  return 1;
}

}  // namespace explorer
