#pragma once

#include <orrelo/Platform.h>

namespace orrelo {

class PosixDevice final : public Device {
 public:
  /// `osRelease` is the file in which the system states its version.
  explicit PosixDevice(std::filesystem::path osRelease = "/etc/os-release");

  /// The distribution's version, else the kernel's.
  std::string systemVersion() const override;
  /// From LC_ALL, LC_MESSAGES and LANG, in this order; "en_US" where they name no language.
  std::string localeIdentifier() const override;
  std::string timeZoneIdentifier() const override;

 private:
  std::filesystem::path osRelease_;
};

}  // namespace orrelo
