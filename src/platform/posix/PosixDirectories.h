#pragma once

#include <orrelo/Platform.h>

namespace orrelo {

/// The folders that HostApplication describes. Folders created here are accessible only to the user.
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
