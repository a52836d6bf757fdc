#include "apps/zendria/SchoolDoor.h"

#include <QFileDialog>
#include <utility>

#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/ConnectDialog.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/SignInDialog.h"

namespace quorvane::zendria {

std::optional<Entrance> SchoolDoor::Open(const QString& place, std::optional<std::int32_t> user) {
  const auto address = AddressOf(place);
  if (NeedsPassword(address)) return Connect(QString::fromStdString(address.Text()), user);
  return Enter(address, user);
}

std::optional<Entrance> SchoolDoor::Connect(const QString& connectionString,
                                            std::optional<std::int32_t> user) {
  std::unique_ptr<School> school;
  const auto begin = connectionString.isEmpty() ? preferences_.LastServer() : connectionString;
  const auto trial = [&school](const SchoolAddress& address) -> std::optional<ServerAnswer> {
    try {
      const BusyCursor busy;
      school = std::make_unique<School>(address);
      return std::nullopt;
    } catch (const SchoolError& error) {
      return AnswerTo(error, address);
    }
  };
  ConnectDialog dialog(begin, trial, &window_);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
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

std::optional<User> SchoolDoor::SignIn(const School& school, std::optional<Centre>& centre) {
  SignInDialog dialog(school.Name(), school.Users(), &window_);
  dialog.OfferCentres(school.Centres(), centre ? std::optional(centre->id) : std::nullopt);
  dialog.exec();
  auto chosen = dialog.Chosen();
  if (!chosen) return std::nullopt;
  centre = dialog.ChosenCentre();
  if (centre && school.Centres().size() > 1) preferences_.KeepCentre(school.File(), centre->id);
  return chosen;
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
  const auto who = user ? Find(*school, *user) : SignIn(*school, centre);
  if (!who) return std::nullopt;
  return Entrance{std::move(school), *who, std::move(centre)};
}

std::optional<User> SchoolDoor::Find(const School& school, std::int32_t user) {
  auto found = school.FindUser(user);
  if (!found)
    ShowSchoolError(
        &window_,
        SchoolError(
            QStringLiteral("En «%1» no hay ningún usuario %2.").arg(school.File()).arg(user)));
  return found;
}

}  // namespace quorvane::zendria
