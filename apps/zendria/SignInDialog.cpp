#include "apps/zendria/SignInDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "apps/zendria/FirstSize.h"
#include "apps/zendria/Heading.h"

namespace quorvane::zendria {
namespace {

std::vector<FilteredList::Entry> Entries(const std::vector<User>& users) {
  std::vector<FilteredList::Entry> entries;
  entries.reserve(users.size());
  for (const auto& user : users)
    entries.push_back({user.id, user.name, "perfil " + user.ProfileText()});
  return entries;
}

}  // namespace

SignInDialog::SignInDialog(const QString& school, std::vector<User> users, QWidget* parent)
    : QDialog(parent), users_(std::move(users)), list_(Entries(users_), "Escriba su nombre") {
  setObjectName("entrada");
  setWindowTitle("Entrar en la escuela");
  auto* const question = new QLabel("¿&Quién va a trabajar?");
  question->setBuddy(&list_.Field());
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const accept = buttons->button(QDialogButtonBox::Ok);
  accept->setText("&Entrar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");

  auto* const column = new QVBoxLayout(this);
  column->addWidget(Heading(school));
  column->addWidget(question);
  column->addWidget(&list_, 1);
  centre_.AddTo(*column);
  column->addWidget(buttons);
  OfferCentres({}, std::nullopt);
  TakeFirstSize(*this, {520, 420});
  list_.setFocus();

  const auto follow = [this, accept] { accept->setEnabled(list_.Chosen().has_value()); };
  list_.Changed = follow;
  list_.Accepted = [this] { QDialog::accept(); };
  follow();
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void SignInDialog::Begin(std::optional<std::int32_t> user) {
  if (user) list_.Choose(*user);
}

std::optional<User> SignInDialog::Chosen() const {
  const auto id = list_.Chosen();
  if (result() != Accepted || !id) return std::nullopt;
  const auto found = std::find_if(users_.begin(), users_.end(),
                                  [&id](const User& user) { return user.id == *id; });
  return *found;
}

}  // namespace quorvane::zendria
