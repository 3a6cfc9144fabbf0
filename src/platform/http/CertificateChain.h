#pragma once

#include <string>
#include <vector>

namespace orrelo {

/// The certificates that a server has presented, in DER; the server's own certificate comes first.
using CertificateChain = std::vector<std::string>;

/// True if the certificates in `file` (PEM) verify the chain of a server of this host. Checks what the URL
/// session checks: signatures, dates, purpose and the host's name.
bool isTrusted(const CertificateChain& chain, const std::string& host, const std::string& file);

}  // namespace orrelo
