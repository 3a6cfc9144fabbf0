#pragma once

#include "network/HTTPClient.h"
#include "network/NetworkConfig.h"
#include "reactive/ObservableType.h"

#include <string>

namespace orrelo {

/// Sends the JSON of one or several events with POST. `path` is appended to the base URL.
reactive::Observable<HTTPReply> postEvents(const NetworkConfig& config, HTTPClient& client, std::string path,
                                           std::string body);

}  // namespace orrelo
