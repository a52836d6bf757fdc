#include "apps/zendria/ConnectDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "adapters/odbc/ConnectionString.h"
#include "apps/zendria/FirstSize.h"

namespace quorvane::zendria {

ConnectDialog::ConnectDialog(const QString& connectionString, QWidget* parent)
    : QDialog(parent), string_(connectionString) {
  setObjectName("conectar");
  setWindowTitle("Conectar con un servidor");
  auto* const hint = new QLabel(
      "La cadena de conexión ODBC de la escuela, que da quien la instaló. Por ejemplo:\n"
      "Driver=FreeTDS;Server=escuela;Database=Centro;UID=zendria;TDS_Version=7.4");
  hint->setWordWrap(true);
  hint->setTextInteractionFlags(Qt::TextSelectableByMouse);
  string_.setObjectName("cadena");
  password_.setObjectName("contraseña");
  password_.setEchoMode(QLineEdit::Password);
  password_.setPlaceholderText("No se guarda");
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* const accept = buttons->button(QDialogButtonBox::Ok);
  accept->setText("Co&nectar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");

  auto* const fields = new QFormLayout;
  fields->addRow("Ca&dena:", &string_);
  fields->addRow("Con&traseña:", &password_);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(hint);
  column->addLayout(fields);
  column->addWidget(buttons);
  TakeFirstSize(*this, {640, 190});
  (connectionString.isEmpty() ? string_ : password_).setFocus();

  const auto follow = [this, accept] {
    accept->setEnabled(odbc::ConnectionString::Looks(string_.text().toStdString()));
  };
  follow();
  connect(&string_, &QLineEdit::textChanged, this, follow);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

SchoolAddress ConnectDialog::Address() const {
  odbc::ConnectionString given(string_.text().trimmed().toStdString());
  if (!password_.text().isEmpty()) given.Set("PWD", password_.text().toStdString());
  return SchoolAddress::Odbc(given.Text());
}

}  // namespace quorvane::zendria
