#pragma once

#include <filesystem>
#include <string>

namespace orrelo::prove {

/// The lives of the scripted host, each in a process of its own, on the same folder. The second begins where
/// the first has ended without a farewell; `settleLife` takes in what both have left and reports one event.
void firstLife(const std::filesystem::path& folder);
void secondLife(const std::filesystem::path& folder);
void settleLife(const std::filesystem::path& folder, const std::string& number = "3");

}  // namespace orrelo::prove
