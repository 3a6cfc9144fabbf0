#pragma once

#include <string>
#include <vector>

namespace orrelo {

/// What a server has shown: its own certificate first, each in DER.
using CertificateChain = std::vector<std::string>;

/// Whether the certificates in `file` (PEM) vouch for the chain of a server of this host, as the URL session
/// would see it: signatures, dates, purpose and the host's name.
bool isTrusted(const CertificateChain& chain, const std::string& host, const std::string& file);

}  // namespace orrelo
