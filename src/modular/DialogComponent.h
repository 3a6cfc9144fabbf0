#pragma once

#include "modular/Action.h"
#include "viewkit/ORLUIViewController.h"

#include <orrelo/Export.h>

#include <memory>

namespace orrelo {

class DialogComponentDelegate {
 public:
  virtual ~DialogComponentDelegate() = default;

  virtual void didReceive(const Action& action) = 0;
};

/// A dialog that a page shows each time it is built. Like a block, it is immutable.
class ORRELO_EXPORT DialogComponent : public std::enable_shared_from_this<DialogComponent> {
 public:
  DialogComponent() = default;
  DialogComponent(const DialogComponent&) = delete;
  DialogComponent& operator=(const DialogComponent&) = delete;
  virtual ~DialogComponent() = default;

  std::weak_ptr<DialogComponentDelegate> delegate;

  virtual void show(ORLUIViewController& viewController) = 0;
};

}  // namespace orrelo
