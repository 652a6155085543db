// Views under any constraints, moved, resized, added and removed in any order.

#include <AppKit/NSWindow.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "Drawing.h"

namespace {

using namespace vexel;

constexpr std::size_t kMostViews = 8;
constexpr std::size_t kMostConstraints = 40;
constexpr std::size_t kMostSteps = 60;

class SizedView : public NSView {
 public:
  std::optional<CGSize> intrinsicContentSize() const override { return size; }
  void draw(CGContext& context, CGRect dirtyRect) override {
    context.fillAligned(dirtyRect, CGColor::genericGray(0.5));
  }

  std::optional<CGSize> size;
};

NSLayoutAttribute anyAttribute(FuzzInput& input) {
  return static_cast<NSLayoutAttribute>(input.choice(9));
}

class Session {
 public:
  explicit Session(FuzzInput& input) : input_(input) {
    addView();
    window_->setContentView(views_.front());
  }

  void step() {
    switch (input_.choice(12)) {
      case 0:
        addView();
        break;
      case 1:
      case 2:
      case 3:
        addConstraint();
        break;
      case 4:
        view()->setFrame(anyRect());
        break;
      case 5:
        window_->setContentSize({input_.points(), input_.points()});
        break;
      case 6:
        changeConstraint();
        break;
      case 7:
        changeView();
        break;
      case 8:
        view()->removeFromSuperview();
        break;
      case 9:
        moveView();
        break;
      case 10:
        window_->contentView() ? window_->contentView()->layoutSubtreeIfNeeded() : void();
        break;
      default:
        display();
    }
  }

  void display() {
    if (const auto content = window_->contentView()) drawEverywhere(*content, input_);
    check();
  }

  void check() const {
    for (const auto& view : views_) {
      const CGRect frame = view->frame();
      require(std::isfinite(frame.origin.x) && std::isfinite(frame.origin.y) &&
                  std::isfinite(frame.size.width) && std::isfinite(frame.size.height),
              "a frame is finite");
      require(frame.size.width >= 0 && frame.size.height >= 0, "a size is not negative");
    }
  }

 private:
  CGRect anyRect() {
    return CGRect::make(input_.points(), input_.points(), input_.points(), input_.points());
  }

  const std::shared_ptr<SizedView>& view() { return views_[input_.choice(views_.size())]; }

  void addView() {
    if (views_.size() >= kMostViews) return;
    const auto added = std::make_shared<SizedView>();
    added->setFrame(anyRect());
    if (input_.flag()) added->setTranslatesAutoresizingMaskIntoConstraints(false);
    if (!views_.empty()) view()->addSubview(added);
    views_.push_back(added);
  }

  /// A view inside itself is a broken invariant.
  void moveView() {
    const auto moved = view();
    const auto host = view();
    if (!host->isDescendantOf(*moved)) host->addSubview(moved);
  }

  void addConstraint() {
    if (constraints_.size() >= kMostConstraints) return;
    const auto first = view();
    const auto second = input_.flag() ? view() : nullptr;
    const auto constraint = NSLayoutConstraint::constraint(
        {.firstItem = *first,
         .firstAttribute = anyAttribute(input_),
         .relation = input_.oneOf({NSLayoutRelation::equal, NSLayoutRelation::lessThanOrEqual,
                                   NSLayoutRelation::greaterThanOrEqual}),
         .secondItem = second.get(),
         .secondAttribute = anyAttribute(input_),
         .multiplier = input_.flag() ? 1 : input_.number(),
         .constant = input_.points()});
    constraint->setPriority(input_.flag() ? 4.0F * input_.byte() : input_.single());
    constraints_.push_back(constraint);
    view()->addConstraint(constraint);
  }

  void changeConstraint() {
    if (constraints_.empty()) return;
    const auto& constraint = constraints_[input_.choice(constraints_.size())];
    switch (input_.choice(4)) {
      case 0:
        constraint->setConstant(input_.number());
        break;
      case 1:
        constraint->setPriority(input_.single());
        break;
      case 2:
        view()->addConstraint(constraint);
        break;
      default:
        view()->removeConstraint(*constraint);
    }
  }

  void changeView() {
    const auto& changed = view();
    switch (input_.choice(6)) {
      case 0:
        changed->setHidden(input_.flag());
        break;
      case 1:
        changed->setBoundsOrigin({input_.points(), input_.points()});
        break;
      case 2:
        changed->setAutoresizingMask(static_cast<NSAutoresizingMask>(input_.choice(64)));
        break;
      case 3:
        changed->size = CGSize{input_.points(), input_.points()};
        changed->invalidateIntrinsicContentSize();
        break;
      case 4:
        changed->setContentCompressionResistancePriority(
            input_.single(), input_.flag() ? NSLayoutConstraintOrientation::horizontal
                                           : NSLayoutConstraintOrientation::vertical);
        break;
      default:
        changed->setNeedsDisplayInRect(anyRect());
    }
  }

  FuzzInput& input_;
  std::shared_ptr<NSWindow> window_ = std::make_shared<NSWindow>(CGSize{200, 100});
  std::vector<std::shared_ptr<SizedView>> views_;
  std::vector<std::shared_ptr<NSLayoutConstraint>> constraints_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  Session session(input);
  for (std::size_t i = 0; i < kMostSteps && !input.isAtEnd(); ++i) session.step();
  session.display();
  return 0;
}
