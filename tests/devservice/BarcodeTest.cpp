#include "ServiceFixture.h"

#include <zlib.h>

namespace orrelo::devservice {

namespace {

/// The black and white modules in the first row of bars of a picture that is 8 bits grey and not filtered.
std::string modulesOf(const std::string& png) {
  const auto number = [&](std::size_t at) {
    return std::size_t{static_cast<unsigned char>(png.at(at + 2))} << 8U |
           static_cast<unsigned char>(png.at(at + 3));
  };
  constexpr std::size_t header = 8;
  constexpr std::size_t dataAt = header + 12 + 13;
  const auto width = number(header + 8);
  const auto height = number(header + 12);
  std::string rows((width + 1) * height, '?');
  auto size = static_cast<uLongf>(rows.size());
  if (uncompress(reinterpret_cast<Bytef*>(rows.data()), &size,
                 reinterpret_cast<const Bytef*>(png.data()) + dataAt + 8, number(dataAt)) != Z_OK) {
    return "cannot be read";
  }
  const auto row = rows.substr((width + 1) * (height / 3) + 1, width);
  std::string modules;
  for (std::size_t at = row.find('\0'); at <= row.rfind('\0'); at += 4)
    modules += row[at] == '\0' ? '1' : '0';
  return modules;
}

using BarcodeTest = ServiceFixture;

TEST_F(BarcodeTest, ABarcodeIsTheOneThatReadersExpect) {
  const auto modules = modulesOf(client_->Get("/barcodes/123456.png")->body);
  // Start C, 12, 34, 56, the check digit (105 + 12 + 2 * 34 + 3 * 56) % 103 = 44, and stop.
  EXPECT_EQ(modules,
            "11010011100"
            "10110011100"
            "10001011000"
            "11100010110"
            "10001101110"
            "1100011101011");
}

}  // namespace

}  // namespace orrelo::devservice
