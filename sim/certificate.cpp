#include "sim/certificate.h"

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace sim {
namespace {

void require(bool worked) {
  if (!worked) throw std::runtime_error("cannot make a certificate");
}

void addExtension(X509* certificate, int kind, const char* value) {
  const std::unique_ptr<X509_EXTENSION, decltype(&X509_EXTENSION_free)> extension(
      X509V3_EXT_conf_nid(nullptr, nullptr, kind, value), X509_EXTENSION_free);
  require(extension && X509_add_ext(certificate, extension.get(), -1) == 1);
}

std::string toPem(X509* certificate) {
  const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
  require(memory && PEM_write_bio_X509(memory.get(), certificate) == 1);
  char* text = nullptr;
  const auto size = BIO_get_mem_data(memory.get(), &text);
  return {text, static_cast<std::size_t>(size)};
}

}  // namespace

Certificate::Certificate() : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free) {
  const std::unique_ptr<EVP_PKEY, decltype(&EVP_PKEY_free)> key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const std::unique_ptr<X509, decltype(&X509_free)> certificate(X509_new(), X509_free);
  require(context_ && key && certificate);
  X509_set_version(certificate.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -3600);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), 30L * 24 * 3600);
  X509_set_pubkey(certificate.get(), key.get());
  auto* name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
                             reinterpret_cast<const unsigned char*>("localhost"), -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  addExtension(certificate.get(), NID_subject_alt_name, "IP:127.0.0.1,DNS:localhost");
  addExtension(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
  require(X509_sign(certificate.get(), key.get(), EVP_sha256()) > 0);
  require(SSL_CTX_use_certificate(context_.get(), certificate.get()) == 1 &&
          SSL_CTX_use_PrivateKey(context_.get(), key.get()) == 1);
  pem_ = toPem(certificate.get());
}

}  // namespace sim
