#pragma once

#include "modular/Action.h"
#include "ui/StackView.h"

#include <orrelo/Export.h>

#include <memory>
#include <string_view>

namespace orrelo {

class UIComponentDelegate {
 public:
  virtual ~UIComponentDelegate() = default;

  virtual void didReceive(const Action& action) = 0;
};

/// A block of a modular page. The data from the service is immutable; a changed page is built of new blocks.
/// Created on any thread, and then used on the main thread only.
class ORRELO_EXPORT UIComponent : public std::enable_shared_from_this<UIComponent> {
 public:
  UIComponent() = default;
  UIComponent(const UIComponent&) = delete;
  UIComponent& operator=(const UIComponent&) = delete;
  virtual ~UIComponent() = default;

  /// The key of the array that contains the blocks of this kind.
  virtual std::string_view arrayKey() const = 0;

  std::weak_ptr<UIComponentDelegate> delegate;

  /// Adds the block's view to the stack. Called once per build of a page.
  virtual void render(StackView& stackView) = 0;

  /// Sends an action to the page. It is dropped if the page was destroyed.
  void send(const Action& action) const {
    if (const auto listener = delegate.lock()) listener->didReceive(action);
  }
};

}  // namespace orrelo
