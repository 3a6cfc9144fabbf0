#pragma once

#include <string>

namespace orrelo::test {

/// Makes SQLite's file system calls fail as ordered. Used by connections opened after the first call of
/// `instance`. Any thread.
class FaultVfs {
 public:
  enum class Call { open, read, write, sync, truncate, lock };

  struct Order {
    Call call;
    /// The SQLite result code.
    int code;
    /// The call that fails, counted from 1.
    int nth = 1;
    /// All later calls fail too.
    bool lasts = false;
    /// A part of the file's name; empty matches every file.
    std::string file = {};
    /// The value of errno.
    int systemError = 0;
  };

  static FaultVfs& instance();

  /// Replaces the former order.
  void order(Order order);
  /// Returns whether a call has failed as ordered.
  bool hasFailed() const;
  void clear();

 private:
  FaultVfs();
};

}  // namespace orrelo::test
