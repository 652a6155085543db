#include <QApplication>

#include "ExplorerWindow.h"
#include "WindowOptions.h"

namespace explorer {

bool canShowWindows() {
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
    if (!qEnvironmentVariableIsEmpty(display)) return true;
  return false;
}

int runWindows(int argc, char** argv, const WindowOptions& options) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Impact Explorer");
  // Closed windows delete themselves.
  auto* const window = new ExplorerWindow(options.theme, std::nullopt, options.size);
  window->show();
  window->open(options);
  return QApplication::exec();
}

}  // namespace explorer
