#pragma once

#include <orrelo/Platform.h>

namespace orrelo {

/// The folders that HostApplication describes. A folder that is made here is the user's alone to read.
class PosixDirectories final : public Directories {
 public:
  explicit PosixDirectories(const HostApplication& host);

  std::filesystem::path data() const override;
  std::filesystem::path cache() const override;

 private:
  std::filesystem::path data_;
  std::filesystem::path cache_;
};

}  // namespace orrelo
