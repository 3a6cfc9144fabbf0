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

/// A block of a page that the service has put together. What came from the service never changes, whatever it
/// shows and does: a change is a new page with new blocks. Made on any thread, then the main thread's.
class ORRELO_EXPORT UIComponent : public std::enable_shared_from_this<UIComponent> {
 public:
  UIComponent() = default;
  UIComponent(const UIComponent&) = delete;
  UIComponent& operator=(const UIComponent&) = delete;
  virtual ~UIComponent() = default;

  /// Under which a page carries the blocks of this kind.
  virtual std::string_view arrayKey() const = 0;

  std::weak_ptr<UIComponentDelegate> delegate;

  /// Adds the block's view to the stack. Once for each build of a page.
  virtual void render(StackView& stackView) = 0;

  /// Upward; dropped where nobody is there.
  void send(const Action& action) const {
    if (const auto listener = delegate.lock()) listener->didReceive(action);
  }
};

}  // namespace orrelo
