#include "apps/zendria/PersonSearchDialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "apps/zendria/FirstSize.h"

namespace quorvane::zendria {

PersonSearchDialog::PersonSearchDialog(std::vector<FilteredList::Entry> people, const QString& kind,
                                       QWidget* parent)
    : QDialog(parent), people_(std::move(people), "Escriba parte del nombre o los apellidos") {
  setObjectName("buscarPersona");
  setWindowTitle("Buscar: " + kind);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const accept = buttons->button(QDialogButtonBox::Ok);
  accept->setText("&Aceptar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");

  auto* const column = new QVBoxLayout(this);
  column->addWidget(&people_, 1);
  column->addWidget(buttons);
  TakeFirstSize(*this, {440, 420});
  people_.setFocus();

  const auto follow = [this, accept] { accept->setEnabled(people_.Chosen().has_value()); };
  people_.Changed = follow;
  people_.Accepted = [this] { QDialog::accept(); };
  follow();
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

std::int32_t PersonSearchDialog::Person() const {
  return result() == Accepted ? people_.Chosen().value_or(0) : 0;
}

}  // namespace quorvane::zendria
