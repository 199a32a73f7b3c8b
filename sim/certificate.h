#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

namespace sim {

// A self-signed certificate for 127.0.0.1 and localhost, new each time, and the TLS set-up with it.
class Certificate {
 public:
  // Throws std::runtime_error when OpenSSL refuses.
  Certificate();

  SSL_CTX* context() const { return context_.get(); }
  const std::string& pem() const { return pem_; }

 private:
  std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context_;
  std::string pem_;
};

}  // namespace sim
