#pragma once

#include <memory>
#include <optional>
#include <string>

#include <AppKit/NSLayoutAttribute.h>
#include <AppKit/NSLayoutRelation.h>
#include <CoreGraphics/CGPoint.h>
#include <Foundation/NSObject.h>
#include <Foundation/VexelAPI.h>

namespace vexel {

class NSView;

/// The two sides of a layout constraint, for NSLayoutConstraint::constraint().
struct VEXEL_API NSLayoutConstraintArguments {
  /// The left side, and how it compares with the right one.
  NSView& firstItem;
  NSLayoutAttribute firstAttribute;
  NSLayoutRelation relation = NSLayoutRelation::equal;
  /// Null: the right side is `constant` alone.
  NSView* secondItem = nullptr;
  /// The right side; `constant` is in points.
  NSLayoutAttribute secondAttribute = NSLayoutAttribute::notAnAttribute;
  CGFloat multiplier = 1;
  CGFloat constant = 0;
};

/// One condition on where views stand:
///
///     firstItem.firstAttribute  (<=, ==, >=)  multiplier x secondItem.secondAttribute + constant
///
/// It has an effect while it is held by a view (NSView::addConstraint), the host, and its items
/// are the host or direct subviews of it. A constraint that says something else - an item is gone
/// or elsewhere, an attribute is missing, a number is not finite - is ignored.
/// The items are not owned.
class VEXEL_API NSLayoutConstraint : public virtual NSObject {
 public:
  /// A constraint of this priority is kept before all others. Of required ones that contradict,
  /// those added earlier are kept.
  static constexpr float kRequiredPriority = 1000;
  /// The lowest that there is.
  static constexpr float kLowestPriority = 1;

  /// A new required constraint without identifier that no view holds.
  static std::shared_ptr<NSLayoutConstraint> constraint(
      const NSLayoutConstraintArguments& arguments);

  /// The view on the left side; null once it is gone.
  NSView* firstItem() const { return firstItem_.get(); }
  /// What of it, and how the sides compare.
  NSLayoutAttribute firstAttribute() const { return firstAttribute_; }
  NSLayoutRelation relation() const { return relation_; }
  /// The view on the right side; null when there is none or once it is gone.
  NSView* secondItem() const { return secondItem_.get(); }
  /// What of it, and what that is multiplied by.
  NSLayoutAttribute secondAttribute() const { return secondAttribute_; }
  CGFloat multiplier() const { return multiplier_; }
  /// Whether it was made with a second item, which may be gone by now.
  bool hasSecondItem() const { return hasSecondItem_; }

  /// In points. Changing it marks the host for layout.
  CGFloat constant() const { return constant_; }
  void setConstant(CGFloat points);

  /// From 1 to 1000 (required); default 1000. Constraints give way to those of higher priority;
  /// among equal ones the sum of the deviations in points is made as small as possible.
  /// Values outside are brought to the nearer end; NaN is refused and the old one kept.
  float priority() const { return priority_; }
  void setPriority(float priority);

  /// A name by which the owner finds it again; absent by default.
  const std::optional<std::string>& identifier() const { return identifier_; }
  void setIdentifier(std::optional<std::string> identifier);

 private:
  friend class NSView;

  explicit NSLayoutConstraint(const NSLayoutConstraintArguments& arguments);
  void changed();

  NSWeak<NSView> firstItem_;
  NSLayoutAttribute firstAttribute_;
  NSLayoutRelation relation_;
  NSWeak<NSView> secondItem_;
  NSLayoutAttribute secondAttribute_;
  bool hasSecondItem_;
  CGFloat multiplier_;
  CGFloat constant_;
  float priority_ = kRequiredPriority;
  std::optional<std::string> identifier_;
  NSWeak<NSView> host_;
};

}  // namespace vexel
