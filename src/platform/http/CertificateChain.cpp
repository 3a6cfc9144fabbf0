#include "platform/http/CertificateChain.h"

#include <memory>
#include <openssl/err.h>
#include <openssl/x509.h>
#include <openssl/x509_vfy.h>

namespace orrelo {
namespace {

template <auto release>
struct Release {
  template <class T>
  void operator()(T* object) const {
    release(object);
  }
};

void freeAll(STACK_OF(X509) * certificates) {
  sk_X509_pop_free(certificates, X509_free);
}

using Certificate = std::unique_ptr<X509, Release<X509_free>>;
using Certificates = std::unique_ptr<STACK_OF(X509), Release<freeAll>>;
using Store = std::unique_ptr<X509_STORE, Release<X509_STORE_free>>;
using Verification = std::unique_ptr<X509_STORE_CTX, Release<X509_STORE_CTX_free>>;

Certificate read(const std::string& der) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(der.data());
  return Certificate(d2i_X509(nullptr, &bytes, static_cast<long>(der.size())));
}

bool expectHost(X509_VERIFY_PARAM* parameters, const std::string& host) {
  return X509_VERIFY_PARAM_set1_ip_asc(parameters, host.c_str()) == 1 ||
         X509_VERIFY_PARAM_set1_host(parameters, host.data(), host.size()) == 1;
}

bool verify(const CertificateChain& chain, const std::string& host, const std::string& file) {
  const Certificates others(sk_X509_new_null());
  const Store store(X509_STORE_new());
  const Verification verification(X509_STORE_CTX_new());
  const auto leaf = chain.empty() ? nullptr : read(chain.front());
  if (host.empty() || !leaf || !others || !store || !verification) return false;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    auto certificate = read(chain[i]);
    if (!certificate || sk_X509_push(others.get(), certificate.get()) == 0) return false;
    certificate.release();
  }
  return X509_STORE_load_file(store.get(), file.c_str()) == 1 &&
         // Every certificate in the file is a trust anchor, also when it is not self-signed; curl does the
         // same.
         X509_STORE_set_flags(store.get(), X509_V_FLAG_PARTIAL_CHAIN) == 1 &&
         X509_STORE_CTX_init(verification.get(), store.get(), leaf.get(), others.get()) == 1 &&
         X509_STORE_CTX_set_default(verification.get(), "ssl_server") == 1 &&
         expectHost(X509_STORE_CTX_get0_param(verification.get()), host) &&
         X509_verify_cert(verification.get()) == 1;
}

}  // namespace

bool isTrusted(const CertificateChain& chain, const std::string& host, const std::string& file) {
  const bool trusted = verify(chain, host, file);
  ERR_clear_error();  // all code on this thread shares the error queue
  return trusted;
}

}  // namespace orrelo
