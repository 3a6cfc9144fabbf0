#pragma once

#include <orrelo/platform/URLSession.h>

#include <string>
#include <string_view>

namespace orrelo {

/// The URL for a line of the explanations: without user, password and fragment, and with "…" in place of the
/// values of "buid" and "userID".
std::string explainedUrl(const Url& url);

/// A text that should be a URL or a path, for a line of the explanations: with "…" in place of the query,
/// which may name the user.
std::string withoutQuery(std::string_view text);

/// Explains how a request has ended: a failure in words and with a remedy, a status that is no success, and
/// otherwise, at `debug`, the status and the beginning of the reply.
void explainResult(std::string_view method, const Url& url, const URLSessionResult& result);

}  // namespace orrelo
