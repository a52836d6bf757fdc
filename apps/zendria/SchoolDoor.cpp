#include "apps/zendria/SchoolDoor.h"

#include <QFileDialog>
#include <utility>

#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/ConnectDialog.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/LoginUser.h"
#include "apps/zendria/PasswordDialog.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/SignInDelay.h"
#include "apps/zendria/SignInDialog.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {
namespace {

/// Puts the question, and keeps the centre that was answered.
template <typename Dialog>
std::optional<User> Answer(Dialog& dialog, const School& school, std::optional<Centre>& centre,
                           Preferences& preferences) {
  dialog.OfferCentres(school.Centres(), centre ? std::optional(centre->id) : std::nullopt);
  dialog.exec();
  auto chosen = dialog.Chosen();
  if (!chosen) return std::nullopt;
  centre = dialog.ChosenCentre();
  if (centre && school.Centres().size() > 1) preferences.KeepCentre(school.File(), centre->id);
  return chosen;
}

}  // namespace

std::optional<Entrance> SchoolDoor::Open(const QString& place, std::optional<std::int32_t> user) {
  const auto address = AddressOf(place);
  if (NeedsPassword(address)) return Connect(QString::fromStdString(address.Text()), user);
  return Enter(address, user);
}

std::optional<Entrance> SchoolDoor::Connect(const QString& connectionString,
                                            std::optional<std::int32_t> user) {
  std::unique_ptr<School> school;
  const auto last = refused_.isEmpty() ? preferences_.LastServer() : refused_;
  const auto begin = connectionString.isEmpty() ? last : connectionString;
  const auto trial = [this, &school](const SchoolAddress& address) -> std::optional<ServerAnswer> {
    try {
      const BusyCursor busy;
      school = std::make_unique<School>(address);
      return std::nullopt;
    } catch (const SchoolError& error) {
      // Who goes and asks somebody finds it again.
      refused_ = QString::fromStdString(address.Shown());
      return AnswerTo(error, address);
    }
  };
  ConnectDialog dialog(begin, trial, &window_);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  refused_.clear();
  preferences_.KeepServer(school->File());
  return Enter(std::move(school), user);
}

QString SchoolDoor::AskForFile() {
  QFileDialog dialog(&window_, "Abrir escuela", {},
                     "Escuelas (*.sqlite *.db);;Todos los ficheros (*)");
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setLabelText(QFileDialog::Accept, "&Abrir");
  dialog.setLabelText(QFileDialog::Reject, "&Cancelar");
  dialog.setLabelText(QFileDialog::LookIn, "Buscar en:");
  dialog.setLabelText(QFileDialog::FileName, "&Nombre:");
  dialog.setLabelText(QFileDialog::FileType, "&Tipo:");
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<User> SchoolDoor::SignIn(School& school, std::optional<Centre>& centre,
                                       std::optional<std::int32_t> user) {
  std::optional<User> who;
  try {
    if (school.Login())
      who = ByLogin(school, centre, user);
    else if (school.HasPasswords())
      who = ByPassword(school, centre, user);
    else
      who = user ? Find(school, *user)
                 : Choose(school, school.Users(), preferences_.LastUser(school.File()), centre);
  } catch (const RuntimeError& error) {
    Refuse(QString::fromStdString(error.Description()));
  }
  if (who) preferences_.KeepLastUser(school.File(), who->id);
  return who;
}

std::optional<User> SchoolDoor::ByLogin(const School& school, std::optional<Centre>& centre,
                                        std::optional<std::int32_t> user) {
  auto own = UserOfLogin(school.Users(), *school.Login());
  if (!own) {
    Refuse(QStringLiteral("El usuario del servidor «%1» no es ninguno de los usuarios de la "
                          "escuela. Entre con el suyo, o pida que le pongan ese nombre en ella.")
               .arg(*school.Login()));
    return std::nullopt;
  }
  if (own->administrator)
    return user ? Find(school, *user)
                : Choose(school, school.Users(),
                         preferences_.LastUser(school.File()).value_or(own->id), centre);
  if (user && *user != own->id) {
    Refuse(QStringLiteral("En un servidor se entra como uno mismo: usted es «%1». Solo un "
                          "administrador puede entrar como otro.")
               .arg(own->name));
    return std::nullopt;
  }
  if (user || school.Centres().size() <= 1) return own;
  return Choose(school, {*own}, own->id, centre);
}

std::optional<User> SchoolDoor::ByPassword(School& school, std::optional<Centre>& centre,
                                           std::optional<std::int32_t> user) {
  SignInDelay delay(preferences_, school.File());
  PasswordDialog dialog(
      school.Name(),
      [&school](const QString& name, const QString& password) {
        return school.SignIn(name, password);
      },
      delay, &window_);
  const auto begin = user ? user : preferences_.LastUser(school.File());
  const auto known = begin ? school.FindUser(*begin) : std::nullopt;
  dialog.Begin(known ? known->name : QString());
  return Answer(dialog, school, centre, preferences_);
}

std::optional<User> SchoolDoor::Choose(const School& school, std::vector<User> users,
                                       std::optional<std::int32_t> begin,
                                       std::optional<Centre>& centre) {
  SignInDialog dialog(school.Name(), std::move(users), &window_);
  dialog.Begin(begin);
  return Answer(dialog, school, centre, preferences_);
}

std::optional<Entrance> SchoolDoor::Enter(const SchoolAddress& address,
                                          std::optional<std::int32_t> user) {
  std::unique_ptr<School> school;
  try {
    const BusyCursor busy;
    school = std::make_unique<School>(address);
  } catch (const SchoolError& error) {
    ShowSchoolError(&window_, error);
    return std::nullopt;
  }
  return Enter(std::move(school), user);
}

std::optional<Entrance> SchoolDoor::Enter(std::unique_ptr<School> school,
                                          std::optional<std::int32_t> user) {
  auto centre = CentreOrFirst(school->Centres(), preferences_.Centre(school->File()));
  const auto who = SignIn(*school, centre, user);
  if (!who) return std::nullopt;
  return Entrance{std::move(school), *who, std::move(centre)};
}

std::optional<User> SchoolDoor::Find(const School& school, std::int32_t user) {
  auto found = school.FindUser(user);
  if (!found)
    Refuse(QStringLiteral("En «%1» no hay ningún usuario %2.").arg(school.File()).arg(user));
  return found;
}

void SchoolDoor::Refuse(const QString& why) { ShowSchoolError(&window_, SchoolError(why)); }

}  // namespace quorvane::zendria
