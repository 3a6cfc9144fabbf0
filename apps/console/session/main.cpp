#include "Session.h"

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

int main() {
  auto pattern = (std::filesystem::temp_directory_path() / "orrelo-session-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) {
    std::cerr << "there is no temporary folder\n";
    return 1;
  }
  int status = 0;
  try {
    orrelo::console::Session(pattern).play();
  } catch (const std::exception& exception) {
    std::cerr << "failed: " << exception.what() << "\n";
    status = 1;
  }
  std::filesystem::remove_all(pattern);
  return status;
}
