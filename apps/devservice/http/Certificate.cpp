#include "http/Certificate.h"

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>
#include <stdexcept>
#include <string>
#include <sys/stat.h>

namespace orrelo::devservice {

namespace {

struct Deleter {
  void operator()(X509* certificate) const { X509_free(certificate); }
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(X509_EXTENSION* extension) const { X509_EXTENSION_free(extension); }
  void operator()(BIGNUM* number) const { BN_free(number); }
  void operator()(std::FILE* file) const { std::fclose(file); }
};

template <class T>
using Owned = std::unique_ptr<T, Deleter>;

constexpr long secondsPerDay = 24L * 60 * 60;
constexpr long validDays = 3650;

void require(bool done, const char* step) {
  if (!done) throw std::runtime_error(std::string("the certificate could not be made: ") + step);
}

void addExtension(X509* certificate, int kind, const char* value) {
  X509V3_CTX context;
  X509V3_set_ctx(&context, certificate, certificate, nullptr, nullptr, 0);
  const Owned<X509_EXTENSION> extension(X509V3_EXT_conf_nid(nullptr, &context, kind, value));
  require(extension && X509_add_ext(certificate, extension.get(), -1) == 1, value);
}

void setRandomSerial(X509* certificate) {
  const Owned<BIGNUM> number(BN_new());
  require(number && BN_rand(number.get(), 127, BN_RAND_TOP_ANY, BN_RAND_BOTTOM_ANY) == 1, "serial number");
  require(BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(certificate)) != nullptr, "serial number");
}

Owned<X509> makeCertificate(EVP_PKEY* key) {
  Owned<X509> certificate(X509_new());
  require(certificate != nullptr, "memory");
  require(X509_set_version(certificate.get(), X509_VERSION_3) == 1, "version");
  setRandomSerial(certificate.get());
  // The certificate is valid from a day ago, for clients in virtual machines whose clocks lag.
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -secondsPerDay);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), validDays * secondsPerDay);
  X509_NAME* name = X509_get_subject_name(certificate.get());
  const std::string commonName = "Orrelo local campaign service";
  require(X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8,
                                     reinterpret_cast<const unsigned char*>(commonName.data()),
                                     static_cast<int>(commonName.size()), -1, 0) == 1,
          "name");
  require(X509_set_issuer_name(certificate.get(), name) == 1, "issuer");
  require(X509_set_pubkey(certificate.get(), key) == 1, "public key");
  addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
  addExtension(certificate.get(), NID_key_usage, "critical,digitalSignature,keyCertSign");
  addExtension(certificate.get(), NID_ext_key_usage, "serverAuth");
  addExtension(certificate.get(), NID_subject_key_identifier, "hash");
  addExtension(certificate.get(), NID_subject_alt_name, "DNS:localhost,IP:127.0.0.1");
  require(X509_sign(certificate.get(), key, EVP_sha256()) != 0, "signature");
  return certificate;
}

Owned<std::FILE> openForWriting(const std::filesystem::path& path, mode_t mode) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
  require(descriptor >= 0, path.c_str());
  return Owned<std::FILE>(::fdopen(descriptor, "w"));
}

void create(const Certificate& files) {
  const Owned<EVP_PKEY> key(EVP_EC_gen("P-256"));
  require(key != nullptr, "key");
  const auto certificate = makeCertificate(key.get());
  // Both files are complete before either is renamed, so that an interrupted start leaves no truncated file.
  const auto newKey = files.keyFile.string() + ".new";
  const auto newCertificate = files.certificateFile.string() + ".new";
  {
    const auto file = openForWriting(newKey, S_IRUSR | S_IWUSR);
    require(PEM_write_PrivateKey(file.get(), key.get(), nullptr, nullptr, 0, nullptr, nullptr) == 1,
            "key file");
  }
  {
    const auto file = openForWriting(newCertificate, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
    require(PEM_write_X509(file.get(), certificate.get()) == 1, "certificate file");
  }
  std::filesystem::rename(newKey, files.keyFile);
  std::filesystem::rename(newCertificate, files.certificateFile);
}

bool isUsable(const Certificate& files) {
  const Owned<std::FILE> certificateFile(std::fopen(files.certificateFile.c_str(), "re"));
  const Owned<std::FILE> keyFile(std::fopen(files.keyFile.c_str(), "re"));
  if (!certificateFile || !keyFile) return false;
  const Owned<X509> certificate(PEM_read_X509(certificateFile.get(), nullptr, nullptr, nullptr));
  const Owned<EVP_PKEY> key(PEM_read_PrivateKey(keyFile.get(), nullptr, nullptr, nullptr));
  return certificate && key && X509_check_private_key(certificate.get(), key.get()) == 1 &&
         X509_cmp_current_time(X509_get0_notAfter(certificate.get())) > 0;
}

}  // namespace

Certificate Certificate::loadOrCreate(const std::filesystem::path& directory) {
  Certificate files{directory / "certificate.pem", directory / "key.pem"};
  if (!isUsable(files)) create(files);
  return files;
}

}  // namespace orrelo::devservice
