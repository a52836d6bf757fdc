#include "apps/programs/PasswordPrompt.h"

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/Told.h"
#include "apps/programs/Terminal.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

/// Whether a server has refused for the lack of a password, or for the wrong one.
bool WantsPassword(const std::string& refusal) {
  for (const auto* const sign : {"no password supplied", "[28P01]", "[28000]", "(18456)"})
    if (refusal.find(sign) != std::string::npos) return true;
  return false;
}

bool OpensAsItIs(const SchoolAddress& address) {
  try {
    return address.Open("") != nullptr;
  } catch (const RuntimeError& error) {
    // What else is wrong is told when it is opened for its work.
    return !WantsPassword(error.Description());
  }
}

}  // namespace

SchoolAddress WithPassword(const SchoolAddress& address) {
  odbc::ConnectionString string(address.Text());
  if (!address.IsOdbc() || string.Has("PWD") || string.Has("Password")) return address;
  const Terminal terminal;
  if (!terminal.IsThere() || OpensAsItIs(address)) return address;
  string.Set("PWD", terminal.ReadHidden("Contraseña de " + Told(address.Shown()) + ": "));
  return SchoolAddress::Odbc(string.Text());
}

}  // namespace quorvane
