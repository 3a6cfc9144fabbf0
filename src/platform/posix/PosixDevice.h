#pragma once

#include <orrelo/Platform.h>

namespace orrelo {

class PosixDevice final : public Device {
 public:
  /// `osRelease` is the system's os-release file.
  explicit PosixDevice(std::filesystem::path osRelease = "/etc/os-release");

  /// The distribution's version, or the kernel's if there is none.
  std::string systemVersion() const override;
  /// Read from LC_ALL, LC_MESSAGES and LANG, in this order; "en_US" if they name no language.
  std::string localeIdentifier() const override;
  std::string timeZoneIdentifier() const override;

 private:
  std::filesystem::path osRelease_;
};

}  // namespace orrelo
