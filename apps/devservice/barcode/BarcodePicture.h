#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orrelo::devservice {

/// Pictures of barcodes, drawn when they are asked for.
class BarcodePicture {
 public:
  /// The path of the picture with these digits on the service.
  static std::string pathOf(std::string_view digits);
  /// The bytes of a PNG file with the code and its digits below; absent if the path is not of such a picture.
  static std::optional<std::string> at(std::string_view path);
};

}  // namespace orrelo::devservice
