#pragma once

#include <string>

namespace orrelo::test {

/// Makes SQLite's calls to the file system fail on order. Connections opened after the first `instance` go
/// through it. Any thread.
class FaultVfs {
 public:
  enum class Call { open, read, write, sync, truncate, lock };

  struct Order {
    Call call;
    /// The SQLite result.
    int code;
    /// Which call, from 1 on.
    int nth = 1;
    /// All later ones fail too.
    bool lasts = false;
    /// A part of the file's name; empty for every file.
    std::string file = {};
    /// What errno says for it.
    int systemError = 0;
  };

  static FaultVfs& instance();

  /// In place of what was ordered before.
  void order(Order order);
  /// Whether the order was carried out at least once.
  bool hasFailed() const;
  void clear();

 private:
  FaultVfs();
};

}  // namespace orrelo::test
