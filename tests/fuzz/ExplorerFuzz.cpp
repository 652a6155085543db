// A file of any content as the explorer shows it, and what a user does then.

#include <AppKit/NSWindow.h>

#include <cstdint>

#include "Drawing.h"
#include "ExplorerView.h"
#include "InputError.h"
#include "MemoryFile.h"

namespace {

using namespace explorer;

constexpr std::size_t kMostSteps = 12;

vexel::NSEvent anyEvent(vexel::FuzzInput& input) {
  vexel::NSEvent event;
  event.type = static_cast<vexel::NSEventType>(input.choice(12));
  event.locationInWindow = {1.0 * input.byte(), 1.0 * input.byte()};
  event.clickCount = static_cast<int>(input.choice(3));
  event.modifierFlags = static_cast<vexel::NSEventModifierFlags>(input.choice(16));
  event.scrollingDeltaX = input.raw<std::int8_t>();
  event.scrollingDeltaY = input.flag() ? input.raw<std::int8_t>() : input.number();
  event.characters = input.flag() ? "+" : "-";
  return event;
}

}  // namespace

/// The first byte says how long what the user does is; the file follows.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t events = std::min<std::size_t>(data[0], size - 1);
  vexel::FuzzInput input(data + 1, events);
  const vexel::MemoryFile file(data + 1 + events, size - 1 - events);

  std::shared_ptr<const Exploration> exploration;
  try {
    exploration = std::make_shared<Exploration>(file.name(), std::nullopt,
                                                [](std::uint64_t) { return true; });
  } catch (const InputError&) {
    return 0;
  }
  const auto window = std::make_shared<vexel::NSWindow>(vexel::CGSize{250, 200});
  const auto view = std::make_shared<ExplorerView>(vexel::CGRect::make(0, 0, 250, 200),
                                                   vexel::PlotTheme::white, std::nullopt);
  window->setContentView(view);
  view->explore(exploration, exploration->choice(std::nullopt, std::nullopt, {}));
  vexel::drawEverywhere(*view, input);
  for (std::size_t step = 0; step < kMostSteps && !input.isAtEnd(); ++step) {
    switch (input.choice(6)) {
      case 0:
        view->zoomIn();
        break;
      case 1:
        view->zoomOut();
        break;
      case 2:
        view->panForward();
        break;
      case 3:
        view->goBack();
        break;
      default:
        window->sendEvent(anyEvent(input));
    }
    vexel::drawEverywhere(*view, input);
  }
  view->underMarker();
  view->shownText();
  return 0;
}
