#pragma once

#include <AppKit/NSView.h>
#include <PlotTheme/PlotTheme.h>

namespace explorer {

/// A contact sheet: the name and the colours of every colour table, low end on the left.
class TableSheet : public vexel::NSView {
 public:
  TableSheet(vexel::CGRect frame, vexel::PlotTheme theme) : NSView(frame), theme_(theme) {}

  void draw(vexel::CGContext& context, vexel::CGRect dirtyRect) override;

 private:
  vexel::PlotTheme theme_;
};

}  // namespace explorer
