#include "PlotColorTable/ReplacedCatalogue.h"

#include <utility>

namespace vexel {

namespace {

ReplacedCatalogue* replaced = nullptr;

}  // namespace

ReplacedCatalogue::ReplacedCatalogue(std::map<std::string, ColorTableFamily> families)
    : families_(std::move(families)) {
  replaced = this;
}

ReplacedCatalogue::~ReplacedCatalogue() {
  replaced = nullptr;
}

const ColorTableFamily& ReplacedCatalogue::family(const std::string& key,
                                                  const ColorTableFamily& (*present)()) {
  askedFor_.push_back(key);
  const auto other = families_.find(key);
  return other == families_.end() ? present() : other->second;
}

// This program is linked so that calls of the catalogue's functions come to those that are wrapped;
// the real ones are what they were meant for.
#define VEXEL_REPLACE_FAMILY(key, name, symbol)                         \
  const ColorTableFamily& wrapped##name() asm("__wrap_" symbol);        \
  const ColorTableFamily& real##name() asm("__real_" symbol);           \
  const ColorTableFamily& wrapped##name() {                             \
    return replaced ? replaced->family(key, real##name) : real##name(); \
  }

VEXEL_REPLACE_FAMILY("IDL", Idl, "_ZN5vexel14idlColorTablesEv")
VEXEL_REPLACE_FAMILY("gmt", Gmt, "_ZN5vexel14gmtColorTablesEv")
VEXEL_REPLACE_FAMILY("brewer", Brewer, "_ZN5vexel17brewerColorTablesEv")
VEXEL_REPLACE_FAMILY("qorm", Qorm, "_ZN5vexel15qormColorTablesEv")
VEXEL_REPLACE_FAMILY("xan", Xan, "_ZN5vexel14xanColorTablesEv")

}  // namespace vexel
