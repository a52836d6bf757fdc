#include "apps/escuela/PasswordHash.h"

#include <array>
#include <sodium.h>  // IWYU pragma: keep: of many headers, none of which is to be named

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

void Prepare() {
  // Harmless when it has been done before.
  if (sodium_init() < 0)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No se pueden tratar contraseñas: el sistema no da números al azar");
}

}  // namespace

std::string PasswordHash(const std::string& password) {
  Prepare();
  std::array<char, crypto_pwhash_STRBYTES> text{};
  if (crypto_pwhash_str_alg(text.data(), password.data(), password.size(),
                            crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE,
                            crypto_pwhash_ALG_ARGON2ID13) != 0)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No queda memoria para tratar la contraseña: cierre otros programas");
  return text.data();
}

bool IsPasswordOf(const std::string& hash, const std::string& password) {
  Prepare();
  return crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
}

const std::string& NobodysHash() {
  static const auto hash = [] {
    Prepare();
    std::string password(crypto_pwhash_SALTBYTES, '\0');
    randombytes_buf(password.data(), password.size());
    return PasswordHash(password);
  }();
  return hash;
}

void Wipe(std::string& password) {
  sodium_memzero(password.data(), password.size());
  password.clear();
}

}  // namespace quorvane
