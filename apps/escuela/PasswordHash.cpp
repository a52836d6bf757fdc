#include "apps/escuela/PasswordHash.h"

#include <array>
#include <sodium.h>  // IWYU pragma: keep: of many headers, none of which is to be named
#include <string_view>

#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

constexpr unsigned long long kTurns = 2;
constexpr std::size_t kMemory = std::size_t{64} << 20;
/// As a text tells them: its memory is in KiB.
constexpr std::string_view kCosts = "$argon2id$v=19$m=65536,t=2,p=1$";

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
  if (crypto_pwhash_str_alg(text.data(), password.data(), password.size(), kTurns, kMemory,
                            crypto_pwhash_ALG_ARGON2ID13) != 0)
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "No queda memoria para tratar la contraseña: cierre otros programas");
  return text.data();
}

bool IsHashOfOurs(const std::string& hash) {
  constexpr std::size_t kSalt = 22;
  constexpr std::size_t kSum = 43;
  constexpr std::string_view kLetters =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (!hash.starts_with(kCosts) || hash.size() != kCosts.size() + kSalt + 1 + kSum) return false;
  const auto salt = hash.substr(kCosts.size(), kSalt);
  const auto sum = hash.substr(kCosts.size() + kSalt + 1);
  return hash[kCosts.size() + kSalt] == '$' &&
         (salt + sum).find_first_not_of(kLetters) == std::string::npos;
}

bool IsPasswordOf(const std::string& hash, const std::string& password) {
  // The comparison takes what the text says: one could be written that takes hours and all memory.
  if (!IsHashOfOurs(hash)) return false;
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
