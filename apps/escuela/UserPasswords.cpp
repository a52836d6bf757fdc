#include "apps/escuela/UserPasswords.h"

#include <algorithm>

#include "apps/escuela/PasswordHash.h"
#include "apps/escuela/QuotedText.h"
#include "apps/escuela/SchoolAddress.h"
#include "apps/escuela/Transaction.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"
#include "platform/text/SpanishOrder.h"

namespace quorvane {
namespace {

constexpr std::size_t kMostBytes = 1024;

std::size_t Letters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  }));
}

}  // namespace

bool UserPasswords::Kept() const { return EngineReached(school_) == sqltext::Engine::Sqlite; }

void UserPasswords::RequireKept() const {
  if (!Kept())
    throw RuntimeError(ErrorNumber::StatementFailed,
                       "Esta escuela está en un servidor, donde cada uno entra con su usuario y su "
                       "contraseña del servidor: cámbiela en él");
}

std::map<std::int32_t, std::string> UserPasswords::Hashes() const {
  std::map<std::int32_t, std::string> hashes;
  if (!Kept() || !HasTable(school_, kTable)) return hashes;
  // Who isn't there any more keeps nobody out.
  auto rows = school_.Execute(
      "SELECT IDUsuario, Clave FROM ClaveUsuario WHERE IDUsuario IN (SELECT IDUsuario FROM Usuario)");
  for (; !rows.Eof(); rows.MoveNext())
    hashes.emplace(rows.Fields("IDUsuario").Long(), rows.Fields("Clave").Text());
  return hashes;
}

bool UserPasswords::Any() const { return !Hashes().empty(); }

std::vector<UserPasswords::Account> UserPasswords::List() const {
  const auto hashes = Hashes();
  std::vector<Account> accounts;
  auto rows = school_.Execute("SELECT * FROM Usuario ORDER BY IDUsuario");
  const auto& names = rows.Names();
  const auto named = std::any_of(names.begin(), names.end(),
                                 [](const auto& name) { return EqualNoCase(name, "Nombre"); });
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto id = rows.Fields("IDUsuario").Long();
    accounts.push_back(
        {id, named ? rows.Fields("Nombre").Text() : std::string(), hashes.count(id) > 0});
  }
  return accounts;
}

std::vector<std::string> UserPasswords::Findings() const {
  std::vector<std::string> findings;
  const auto hashes = Hashes();
  for (const auto& [user, hash] : hashes)
    if (!IsHashOfOurs(hash))
      findings.push_back("La contraseña del usuario " + std::to_string(user) +
                         " no la ha puesto este programa, y nadie puede entrar con ella: póngale "
                         "otra con «quorvane-escuela usuarios FICHERO clave " +
                         std::to_string(user) + "»");
  if (hashes.size() <= kMostOfOneName) return findings;
  std::map<std::string, std::size_t, decltype(&SpanishLess)> called(&SpanishLess);
  for (const auto& account : List())
    if (account.hasPassword && IsHashOfOurs(hashes.at(account.id))) ++called[account.name];
  for (const auto& [name, count] : called)
    if (count > kMostOfOneName)
      findings.push_back("Hay " + std::to_string(count) +
                         " usuarios con contraseña que se llaman «" + name + "», y solo los " +
                         std::to_string(kMostOfOneName) +
                         " primeros, por su número, pueden entrar: cambie el nombre de los demás");
  return findings;
}

std::optional<UserPasswords::Account> UserPasswords::Find(const std::string& numberOrName) const {
  const auto accounts = List();
  const auto only = [&accounts](const auto& fits) -> std::optional<Account> {
    const auto first = std::find_if(accounts.begin(), accounts.end(), fits);
    if (first == accounts.end() || std::any_of(first + 1, accounts.end(), fits))
      return std::nullopt;
    return *first;
  };
  if (auto numbered =
          only([&](const Account& account) { return std::to_string(account.id) == numberOrName; }))
    return numbered;
  return only([&](const Account& account) { return EqualNoCase(account.name, numberOrName); });
}

std::string UserPasswords::Fault(const std::string& password) {
  if (Letters(password) < kFewestLetters)
    return "La contraseña ha de tener " + std::to_string(kFewestLetters) + " letras o más";
  if (password.size() > kMostBytes) return "La contraseña es demasiado larga";
  return {};
}

void UserPasswords::Set(std::int32_t user, const std::string& password) {
  RequireKept();
  if (const auto fault = Fault(password); !fault.empty())
    throw RuntimeError(ErrorNumber::StatementFailed, fault);
  const auto hash = PasswordHash(password);
  Transaction transaction(school_);
  Keep(user, hash);
  transaction.Keep();
}

void UserPasswords::TakeOver(const std::map<std::int32_t, std::string>& hashes) {
  RequireKept();
  for (const auto& [user, hash] : hashes) Keep(user, hash);
}

void UserPasswords::Keep(std::int32_t user, const std::string& hash) {
  const auto id = std::to_string(user);
  school_.Execute(
      "CREATE TABLE IF NOT EXISTS ClaveUsuario (IDUsuario INTEGER PRIMARY KEY, Clave TEXT NOT NULL)");
  school_.Execute("DELETE FROM ClaveUsuario WHERE IDUsuario=" + id);
  // Of another file it may be any text.
  std::string insertion = "INSERT INTO ClaveUsuario (IDUsuario, Clave) VALUES (" + id + ",";
  AppendQuoted(insertion, hash, sqltext::Engine::Sqlite);
  school_.Execute(insertion + ")");
}

bool UserPasswords::Remove(std::int32_t user) {
  Transaction transaction(school_);
  const auto hashes = Hashes();
  if (hashes.count(user) == 0) return false;
  if (hashes.size() == 1)
    school_.Execute("DROP TABLE ClaveUsuario");
  else
    school_.Execute("DELETE FROM ClaveUsuario WHERE IDUsuario=" + std::to_string(user));
  transaction.Keep();
  return true;
}

std::optional<std::int32_t> UserPasswords::Owner(const std::vector<std::int32_t>& candidates,
                                                 std::size_t atLeast,
                                                 const std::string& password) const {
  const auto hashes = Hashes();
  // Made before any is looked at, or the first who has none would take longer.
  const auto& nobodys = NobodysHash();
  // One of other costs isn't compared with, and must not tell so by being quicker.
  std::map<std::int32_t, std::string> compared;
  for (const auto user : candidates)
    if (const auto found = hashes.find(user); found != hashes.end() && IsHashOfOurs(found->second))
      compared.insert(*found);
  std::optional<std::int32_t> owner;
  auto next = compared.begin();
  const auto times = std::min(std::max(candidates.size(), atLeast), kMostOfOneName);
  for (std::size_t time = 0; time < times; ++time) {
    if (next == compared.end()) {
      static_cast<void>(IsPasswordOf(nobodys, password));
      continue;
    }
    if (IsPasswordOf(next->second, password) && !owner) owner = next->first;
    ++next;
  }
  return owner;
}

}  // namespace quorvane
