#include "apps/quorvane-escuela/UserCommands.h"

#include <algorithm>
#include <iostream>
#include <optional>

#include "apps/escuela/PasswordHash.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Told.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/quorvane-escuela/NewPassword.h"
#include "apps/quorvane-escuela/UnlessStopped.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

using Account = UserPasswords::Account;

constexpr auto kOpenToAll =
    "Sin contraseñas: quien abre el fichero entra como cualquiera de sus usuarios";

std::optional<Account> FindUser(const UserPasswords& passwords, const std::string& user) {
  auto found = passwords.Find(user);
  if (!found)
    std::cout << "No hay ningún usuario «" << Told(user)
              << "», o más de uno se llama así: dé su número\n";
  return found;
}

std::string Shown(const Account& account) {
  return "usuario " + std::to_string(account.id) +
         (account.name.empty() ? std::string() : " (" + VisibleText(account.name) + ")");
}

std::size_t CountProtected(const std::vector<Account>& accounts) {
  return static_cast<std::size_t>(
      std::count_if(accounts.begin(), accounts.end(),
                    [](const Account& account) { return account.hasPassword; }));
}

std::string Summary(const std::vector<Account>& accounts) {
  const auto count = CountProtected(accounts);
  if (count == 0) return kOpenToAll;
  return "Con contraseña: " + std::to_string(count) + " de " + std::to_string(accounts.size()) +
         (count == accounts.size() ? " usuarios" : " usuarios; los demás no pueden entrar");
}

}  // namespace

int ShowUsers(const SchoolAddress& address) {
  const auto school = address.Open("", SchoolAddress::Access::ReadOnly);
  RequireSchool(*school);
  const UserPasswords passwords(*school);
  const auto accounts = passwords.List();
  for (const auto& account : accounts) {
    std::cout << "  " << account.id << "  " << VisibleText(account.name);
    if (passwords.Kept())
      std::cout << (account.hasPassword ? "  con contraseña" : "  sin contraseña");
    std::cout << '\n';
  }
  std::cout << (passwords.Kept()
                    ? Summary(accounts)
                    : "En un servidor cada uno entra con su usuario y su contraseña del servidor")
            << '\n';
  return 0;
}

int SetPassword(const SchoolAddress& address, const std::string& user) {
  const auto school = address.Open("");
  RequireSchool(*school);
  UserPasswords passwords(*school);
  passwords.RequireKept();
  const auto account = FindUser(passwords, user);
  if (!account) return 1;
  auto password = AskNewPassword("Contraseña nueva del " + Shown(*account));
  if (!password) return 1;
  try {
    passwords.Set(account->id, *password);
  } catch (...) {
    Wipe(*password);
    throw;
  }
  Wipe(*password);
  std::cout << "Puesta la contraseña del " << Shown(*account) << '\n'
            << Summary(passwords.List()) << '\n';
  return 0;
}

namespace {

int TakePassword(const SchoolAddress& address, const std::string& user) {
  const auto school = address.Open("");
  RequireSchool(*school);
  UserPasswords passwords(*school);
  const auto account = FindUser(passwords, user);
  if (!account) return 1;
  if (!account->hasPassword) {
    std::cout << "El " << Shown(*account) << " no tiene contraseña\n";
    return 1;
  }
  AskBeforeEach(*school, RequireGoing);
  passwords.Remove(account->id);
  std::cout << "Quitada la contraseña del " << Shown(*account) << '\n'
            << Summary(passwords.List()) << '\n';
  return 0;
}

}  // namespace

int RemovePassword(const SchoolAddress& address, const std::string& user) {
  return UnlessStopped([&] { return TakePassword(address, user); });
}

std::string PasswordsFinding(Connection& school) {
  const UserPasswords passwords(school);
  return passwords.Kept() ? Summary(passwords.List()) : std::string();
}

}  // namespace quorvane
