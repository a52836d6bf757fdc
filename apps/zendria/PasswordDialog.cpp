#include "apps/zendria/PasswordDialog.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <utility>

#include "apps/zendria/Attempt.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/Heading.h"
#include "apps/zendria/SignInDelay.h"

namespace quorvane::zendria {
namespace {

constexpr std::chrono::seconds kSecond(1);

QString DurationText(std::chrono::seconds time) {
  const auto seconds = static_cast<int>(time.count());
  if (seconds == 1) return "1 segundo";
  return QStringLiteral("%1 segundos").arg(seconds);
}

}  // namespace

PasswordDialog::PasswordDialog(const QString& school, Trial trial, SignInDelay& delay,
                               QWidget* parent)
    : QDialog(parent), trial_(std::move(trial)), delay_(delay) {
  setObjectName("contraseña");
  setWindowTitle("Entrar en la escuela");
  name_.setObjectName("nombre");
  name_.setAccessibleName("Usuario");
  password_.setObjectName("clave");
  password_.setAccessibleName("Contraseña");
  password_.setEchoMode(QLineEdit::Password);
  // Nor may an input method learn it.
  password_.setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText |
                                Qt::ImhNoAutoUppercase);
  answer_.setObjectName("respuesta");
  answer_.setAccessibleName("Por qué no se puede entrar");
  answer_.setWordWrap(true);
  answer_.setTextFormat(Qt::PlainText);
  LayOut(school);
  TakeFirstSize(*this, {440, 240});
  for (auto* const field : {&name_, &password_})
    connect(field, &QLineEdit::textChanged, this, [this] {
      failed_ = false;
      Follow();
    });
  connect(&second_, &QTimer::timeout, this, [this] { Follow(); });
  OfferCentres({}, std::nullopt);
  Follow();
}

void PasswordDialog::LayOut(const QString& school) {
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  enter_ = buttons->button(QDialogButtonBox::Ok);
  enter_->setText("&Entrar");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Cancelar");
  connect(buttons, &QDialogButtonBox::accepted, this, &PasswordDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* const fields = new QFormLayout;
  fields->addRow("&Usuario:", &name_);
  fields->addRow("C&ontraseña:", &password_);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(Heading(school));
  column->addLayout(fields);
  centre_.AddTo(*column);
  column->addWidget(&answer_, 1);
  column->addWidget(buttons);
}

void PasswordDialog::Begin(const QString& name) {
  name_.setText(name);
  (name.isEmpty() ? name_ : password_).setFocus();
  Follow();
}

void PasswordDialog::Follow() {
  const auto left = delay_.Left();
  enter_->setEnabled(left.count() == 0 && !name_.text().trimmed().isEmpty());
  const auto was = answer_.text();
  auto text = failed_ ? QStringLiteral("El usuario o la contraseña no son correctos.") : QString();
  if (left.count() > 0) {
    if (text.isEmpty()) text = "Ha habido demasiados intentos.";
    text += " Espere " + DurationText(left) + ".";
    second_.start(kSecond);
  } else {
    second_.stop();
  }
  answer_.setText(text);
  if (text.isEmpty() || !was.isEmpty()) return;
  QAccessibleEvent told(&answer_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
}

void PasswordDialog::accept() {
  if (delay_.Left().count() > 0 || name_.text().trimmed().isEmpty()) return;
  // A school that can't be read is no wrong password.
  if (!Attempt(this, [this] { chosen_ = trial_(name_.text().trimmed(), password_.text()); }))
    return;
  if (chosen_) {
    delay_.Succeeded();
    return QDialog::accept();
  }
  delay_.Failed();
  password_.clear();
  failed_ = true;
  password_.setFocus();
  Follow();
}

}  // namespace quorvane::zendria
