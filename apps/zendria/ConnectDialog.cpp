#include "apps/zendria/ConnectDialog.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QIntValidator>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "adapters/odbc/ConnectionString.h"
#include "adapters/qt/views/ClosedListWheel.h"
#include "apps/zendria/FirstSize.h"

namespace quorvane::zendria {
namespace {

constexpr int kLastPort = 65535;
constexpr QSize kConnectSize(560, 330);

}  // namespace

ConnectDialog::ConnectDialog(const QString& connectionString, Trial trial, QWidget* parent)
    : QDialog(parent), trial_(std::move(trial)), byHand_("Escribir a mano la ca&dena de conexión") {
  setObjectName("conectar");
  setWindowTitle("Conectar con un servidor");
  for (auto* const box : {&kind_, &tls_}) qt::LeaveWheelOf(*box);
  kind_.addItems({"PostgreSQL", "SQL Server"});
  port_.setValidator(new QIntValidator(1, kLastPort, &port_));
  password_.setEchoMode(QLineEdit::Password);
  password_.setPlaceholderText("No se guarda");
  for (const auto& mode : ServerChoice::SslModes()) tls_.addItem(mode.title, mode.name);
  string_.setPlaceholderText("Driver=…;Server=…;Database=…;UID=…");
  answer_.setWordWrap(true);
  answer_.setTextFormat(Qt::PlainText);
  answer_.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  answer_.setFrameShape(QFrame::StyledPanel);
  answer_.setMargin(6);
  answer_.hide();
  LayOut();
  NameForReaders();
  Begin(connectionString);

  const auto follow = [this] { connect_->setEnabled(IsComplete()); };
  for (auto* const field : {&server_, &database_, &string_})
    connect(field, &QLineEdit::textChanged, this, follow);
  connect(&kind_, &QComboBox::currentIndexChanged, this, [this] { FollowKind(); });
  connect(&byHand_, &QCheckBox::toggled, this, [this, follow](bool byHand) {
    FollowByHand();
    follow();
    if (byHand) string_.setFocus();
  });
  FollowKind();
  follow();
  TakeFirstSize(*this, kConnectSize);
}

void ConnectDialog::LayOut() {
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect_ = buttons->button(QDialogButtonBox::Ok);
  connect_->setText("Co&nectar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
  connect(buttons, &QDialogButtonBox::accepted, this, &ConnectDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  fields_ = new QFormLayout;
  fields_->addRow("T&ipo:", &kind_);
  fields_->addRow("&Servidor:", &server_);
  fields_->addRow("&Puerto:", &port_);
  fields_->addRow("&Base de datos:", &database_);
  fields_->addRow("&Usuario:", &user_);
  fields_->addRow("Con&traseña:", &password_);
  fields_->addRow("Ci&frado:", &tls_);
  fields_->addRow(&byHand_);
  fields_->addRow("Cad&ena:", &string_);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(fields_);
  column->addWidget(&answer_, 1);
  column->addStretch();
  column->addWidget(buttons);
}

void ConnectDialog::NameForReaders() {
  const auto name = [](QWidget& widget, const char* object, const char* accessible) {
    widget.setObjectName(object);
    widget.setAccessibleName(accessible);
  };
  name(kind_, "tipo", "Tipo de servidor");
  name(server_, "servidor", "Servidor");
  name(port_, "puerto", "Puerto");
  name(database_, "baseDeDatos", "Base de datos");
  name(user_, "usuarioServidor", "Usuario del servidor");
  name(password_, "contraseña", "Contraseña");
  name(tls_, "cifrado", "Cifrado de la conexión");
  name(byHand_, "aMano", "Escribir a mano la cadena de conexión");
  name(string_, "cadena", "Cadena de conexión");
  name(answer_, "respuesta", "Por qué no se puede conectar");
}

void ConnectDialog::Begin(const QString& connectionString) {
  const auto choice =
      connectionString.isEmpty() ? ServerChoice() : ServerChoice::Of(connectionString);
  byHand_.setChecked(!choice);
  string_.setText(connectionString);
  if (choice) {
    kind_.setCurrentIndex(static_cast<int>(choice->kind));
    server_.setText(choice->server);
    port_.setText(choice->port);
    database_.setText(choice->database);
    user_.setText(choice->user);
    tls_.setCurrentIndex(tls_.findData(choice->sslmode));
  }
  (connectionString.isEmpty() ? server_ : password_).setFocus();
}

ServerChoice ConnectDialog::Choice() const {
  return {static_cast<ServerChoice::Kind>(kind_.currentIndex()),
          server_.text(),
          port_.text(),
          database_.text(),
          user_.text(),
          tls_.currentData().toString()};
}

bool ConnectDialog::IsComplete() const {
  if (byHand_.isChecked()) return odbc::ConnectionString::Looks(string_.text().toStdString());
  return !server_.text().trimmed().isEmpty() && !database_.text().trimmed().isEmpty();
}

void ConnectDialog::FollowKind() {
  const auto kind = Choice().kind;
  port_.setPlaceholderText(ServerChoice::UsualPort(kind));
  for (const auto other : {ServerChoice::Kind::PostgreSql, ServerChoice::Kind::SqlServer})
    if (other != kind && port_.text() == ServerChoice::UsualPort(other)) port_.clear();
  FollowByHand();
}

void ConnectDialog::FollowByHand() {
  const auto byHand = byHand_.isChecked();
  // What the fields say is where a string by hand begins.
  if (byHand && string_.text().isEmpty() && !server_.text().isEmpty())
    string_.setText(Choice().Text());
  for (QWidget* const field :
       std::initializer_list<QWidget*>{&kind_, &server_, &port_, &database_, &user_, &tls_}) {
    field->setEnabled(!byHand);
    fields_->labelForField(field)->setEnabled(!byHand);
  }
  const auto postgreSql = Choice().kind == ServerChoice::Kind::PostgreSql;
  tls_.setVisible(postgreSql);
  fields_->labelForField(&tls_)->setVisible(postgreSql);
  string_.setVisible(byHand);
  fields_->labelForField(&string_)->setVisible(byHand);
}

SchoolAddress ConnectDialog::Address() const {
  const auto text = byHand_.isChecked() ? string_.text().trimmed() : Choice().Text();
  odbc::ConnectionString given(text.toStdString());
  if (!password_.text().isEmpty()) given.Set("PWD", password_.text().toStdString());
  return SchoolAddress::Odbc(given.Text());
}

void ConnectDialog::accept() {
  if (!IsComplete()) return;
  if (const auto mistake = Choice().Mistake(); !byHand_.isChecked() && mistake)
    return Show(*mistake);
  if (const auto answer = trial_(Address())) return Show(*answer);
  QDialog::accept();
}

void ConnectDialog::Show(const ServerAnswer& answer) {
  answer_.setText(answer.text);
  answer_.show();
  layout()->activate();
  resize(width(),
         std::max(height(), layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width())
                                                          : layout()->totalSizeHint().height()));
  QAccessibleEvent told(&answer_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
  const auto field = [&]() -> QWidget* {
    using About = ServerAnswer::About;
    if (answer.about == About::Password) return &password_;
    if (byHand_.isChecked()) return &string_;
    switch (answer.about) {
      case About::Server:
        return &server_;
      case About::Port:
        return &port_;
      case About::Database:
        return &database_;
      case About::User:
        return &user_;
      case About::Tls:
        return &tls_;
      default:
        return nullptr;
    }
  }();
  if (field == nullptr) return;
  field->setFocus();
  if (auto* const line = qobject_cast<QLineEdit*>(field)) line->selectAll();
}

}  // namespace quorvane::zendria
