#pragma once

#include <orrelo/Date.h>

#include <string>
#include <variant>

namespace orrelo {

/// A mobile voucher of the user. The service owns its state; the kit can only ask to publish an idle one.
struct Gifticon {
  /// It has been issued and can be used.
  struct Published {
    /// The picture with the barcode; may be empty.
    std::string imageUrl;
    friend bool operator==(const Published&, const Published&) = default;
  };
  /// It can be issued.
  struct Idle {
    friend bool operator==(const Idle&, const Idle&) = default;
  };
  struct Expired {
    friend bool operator==(const Expired&, const Expired&) = default;
  };
  struct Used {
    friend bool operator==(const Used&, const Used&) = default;
  };
  struct Canceled {
    friend bool operator==(const Canceled&, const Canceled&) = default;
  };
  using State = std::variant<Published, Idle, Expired, Used, Canceled>;

  std::string id;
  /// A short text above the title, such as the name of the shop.
  std::string tagText;
  std::string title;
  Date limitDate;
  State state = Idle();

  friend bool operator==(const Gifticon&, const Gifticon&) = default;
};

}  // namespace orrelo
