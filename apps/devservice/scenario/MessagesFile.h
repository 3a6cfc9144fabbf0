#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace orrelo::devservice {

/// Reads `messages.json` into the reply that clients get: the messages in the order of the file. Each must
/// lead to one of `campaigns`, which are names of campaign files. Throws std::runtime_error that says what is
/// wrong in the file.
nlohmann::json messagesFromText(const std::string& text, const std::vector<std::string>& campaigns);

/// The reply of a scenario without messages.
nlohmann::json noMessages();

}  // namespace orrelo::devservice
