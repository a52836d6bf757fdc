#include "apps/zendria/SignInDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "apps/zendria/FirstSize.h"

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
    : QDialog(parent),
      users_(std::move(users)),
      list_(Entries(users_), "Escriba su nombre"),
      centreLabel_("Cen&tro en el que trabaja") {
  setObjectName("entrada");
  setWindowTitle("Entrar en la escuela");
  auto* const heading = new QLabel(school);
  heading->setTextFormat(Qt::PlainText);
  auto font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 1.3);
  font.setBold(true);
  heading->setFont(font);
  auto* const question = new QLabel("¿&Quién va a trabajar?");
  question->setBuddy(&list_.Field());
  centreLabel_.setBuddy(&centreBox_);
  centreBox_.setObjectName("centro");
  // A list of many kinds of teaching must not make the dialog wider than the screen.
  centreBox_.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const accept = buttons->button(QDialogButtonBox::Ok);
  accept->setText("&Entrar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");

  auto* const column = new QVBoxLayout(this);
  column->addWidget(heading);
  column->addWidget(question);
  column->addWidget(&list_, 1);
  column->addWidget(&centreLabel_);
  column->addWidget(&centreBox_);
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

void SignInDialog::OfferCentres(const std::vector<Centre>& centres,
                                std::optional<std::int32_t> id) {
  centres_ = centres;
  centreBox_.clear();
  for (const auto& centre : centres_) {
    centreBox_.addItem(centre.Text());
    centreBox_.setItemData(centreBox_.count() - 1, centre.Text(), Qt::ToolTipRole);
    if (centre.id == id) centreBox_.setCurrentIndex(centreBox_.count() - 1);
  }
  const auto choice = centres_.size() > 1;
  centreLabel_.setVisible(choice);
  centreBox_.setVisible(choice);
}

std::optional<Centre> SignInDialog::ChosenCentre() const {
  if (centres_.empty()) return std::nullopt;
  return centres_[static_cast<std::size_t>(centreBox_.currentIndex())];
}

std::optional<User> SignInDialog::Chosen() const {
  const auto id = list_.Chosen();
  if (result() != Accepted || !id) return std::nullopt;
  const auto found = std::find_if(users_.begin(), users_.end(),
                                  [&id](const User& user) { return user.id == *id; });
  return *found;
}

}  // namespace quorvane::zendria
