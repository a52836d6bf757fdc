// "Conectar con un servidor": its fields, and what it answers to each thing that can be wrong.

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include "adapters/odbc/ConnectionString.h"
#include "apps/zendria/ConnectDialog.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/School.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/ZendriaCentroApi.h"
#include "frame/cConfiguracion.h"
#include "tests/support/DataSources.h"
#include "tests/support/Matchers.h"
#include "tests/support/ServerSchools.h"
#include "tests/zendria/FileBytes.h"
#include "tests/zendria/Robot.h"

namespace quorvane::test {
namespace {

using zendria::ConnectDialog;
using zendria::SchoolError;
using zendria::ServerAnswer;

/// What opening the school of that connection string is answered with; empty when it opened.
std::string Told(const QString& string) {
  const auto address = SchoolAddress::Odbc(string.toStdString());
  try {
    const zendria::School school(address);
    return "";
  } catch (const SchoolError& error) {
    return AnswerTo(error, address).text.toStdString();
  }
}

/// What that failure of the driver's is answered with.
std::string Told(const QString& string, const QString& why) {
  return AnswerTo(SchoolError(why), SchoolAddress::Odbc(string.toStdString())).text.toStdString();
}

class ConnectDialogTest : public testing::Test {
 protected:
  void Type(const char* field, const QString& text) {
    auto* const line = dialog.findChild<QLineEdit*>(field);
    line->clear();
    QTest::keyClicks(line, text);
  }
  /// Shows the dialog, and fills in the fields that it can't do without.
  void ShowFilled(const QString& database = "centro") {
    dialog.show();
    Type("servidor", "escuela");
    Type("baseDeDatos", database);
  }
  template <typename Widget>
  Widget& Find(const char* name) {
    return *dialog.findChild<Widget*>(name);
  }
  QAbstractButton& Connect() { return Button(dialog, "Co&nectar"); }

  std::vector<std::string> tried;
  std::optional<ServerAnswer> answer;
  ConnectDialog dialog{{}, [this](const SchoolAddress& address) {
                         tried.push_back(address.Text());
                         return answer;
                       }};
};

TEST_F(ConnectDialogTest, TriesWhatTheFieldsSayOnEnter) {
  dialog.show();
  EXPECT_FALSE(Connect().isEnabled());
  Type("servidor", "escuela");
  EXPECT_FALSE(Connect().isEnabled());
  Type("baseDeDatos", "centro");
  EXPECT_TRUE(Connect().isEnabled());
  Type("usuarioServidor", "ana");
  Type("contraseña", "a;b}c");
  QTest::keyClick(&dialog.Password(), Qt::Key_Return);
  EXPECT_EQ(tried, std::vector<std::string>{
                       "Driver={PostgreSQL Unicode};Server=escuela;Port=5432;Database=centro;"
                       "UID=ana;sslmode=prefer;PWD={a;b}}c}"});
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(ConnectDialogTest, AFailureIsToldAndWhatWasTypedStays) {
  answer = ServerAnswer{ServerAnswer::About::Password, "El servidor no admite ese usuario."};
  ShowFilled();
  Type("contraseña", "mal");
  QTest::keyClick(&dialog.Password(), Qt::Key_Return);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(Find<QLabel>("respuesta").isVisible());
  EXPECT_EQ(Find<QLabel>("respuesta").text(), answer->text);
  EXPECT_EQ(dialog.Password().text(), "mal");
  EXPECT_EQ(dialog.Password().selectedText().size(), 3);
  EXPECT_EQ(Find<QLineEdit>("servidor").text(), "escuela");
  answer.reset();
  QTest::keyClicks(&dialog.Password(), "bien");
  QTest::keyClick(&dialog.Password(), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(tried.back().ends_with("PWD=bien"));
}

TEST_F(ConnectDialogTest, TheKindChangesThePortAndHidesTheEncryption) {
  dialog.show();
  Type("puerto", "5432");
  EXPECT_TRUE(Find<QComboBox>("cifrado").isVisible());
  Find<QComboBox>("tipo").setCurrentIndex(1);
  EXPECT_EQ(Find<QLineEdit>("puerto").text(), "");
  EXPECT_EQ(Find<QLineEdit>("puerto").placeholderText(), "1433");
  EXPECT_FALSE(Find<QComboBox>("cifrado").isVisible());
}

TEST_F(ConnectDialogTest, AStringByHandTakesThePlaceOfTheFields) {
  ShowFilled();
  EXPECT_FALSE(dialog.String().isVisible());
  Find<QCheckBox>("aMano").click();
  EXPECT_TRUE(dialog.String().text().contains("Server=escuela;"));
  EXPECT_FALSE(Find<QLineEdit>("servidor").isEnabled());
  Type("cadena", "DSN=otra");
  QTest::keyClick(&dialog.String(), Qt::Key_Return);
  EXPECT_EQ(tried, std::vector<std::string>{"DSN=otra"});
}

TEST_F(ConnectDialogTest, ANameThatNoStringCanHoldIsToldBeforeTrying) {
  ShowFilled("a;b");
  Connect().click();
  EXPECT_TRUE(tried.empty());
  EXPECT_TRUE(Find<QLabel>("respuesta").text().contains("«a;b»"));
}

TEST_F(ConnectDialogTest, TheFieldWithTheNameThatNoStringCanHoldHasTheKeyboard) {
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  Type("servidor", "a;b");
  Type("baseDeDatos", "centro");
  Connect().click();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "servidor");
  Type("servidor", "a");
  Type("usuarioServidor", "{x");
  Connect().click();
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "usuarioServidor");
}

TEST_F(ConnectDialogTest, BehindASqlServerTheEncryptionIsTheUsualOne) {
  ConnectDialog again("Driver=FreeTDS;Server=a;Port=1433;Database=b;UID=c;TDS_Version=7.4",
                      [](const SchoolAddress&) { return std::nullopt; });
  again.show();
  auto& kind = *again.findChild<QComboBox*>("tipo");
  EXPECT_EQ(kind.currentIndex(), 1);
  kind.setCurrentIndex(0);
  EXPECT_EQ(again.findChild<QComboBox*>("cifrado")->currentText(), "Si el servidor puede");
  EXPECT_NE(again.Address().Text().find(";sslmode=prefer"), std::string::npos);
}

TEST_F(ConnectDialogTest, TheTabGoesDownTheFields) {
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  Find<QComboBox>("tipo").setFocus();
  for (const auto* const next :
       {"servidor", "puerto", "baseDeDatos", "usuarioServidor", "contraseña", "cifrado", "aMano"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
    EXPECT_FALSE(QApplication::focusWidget()->accessibleName().isEmpty());
  }
}

TEST(ConnectAnswer, WithoutADriverNamesThePackage) {
  const QString why =
      "No se puede conectar con la base de datos: [01000] Can't open lib 'x' : file not found (0). "
      "Compruebe que la cadena nombra un controlador instalado";
  EXPECT_THAT(Told("Driver={PostgreSQL Unicode};Server=a", why), HasSubstr("odbc-postgresql"));
  EXPECT_THAT(
      Told("Driver=FreeTDS;Server=a", why),
      AllOf(HasSubstr("tdsodbc"),
            EndsWith("El controlador dice: [01000] Can't open lib 'x' : file not found (0)")));
  EXPECT_THAT(Told("Driver=No hay tal;Server=a;UID=ana"),
              HasSubstr("ningún controlador «No hay tal»"));
  EXPECT_THAT(Told("Driver=MySQL;Server=a;UID=ana"),
              HasSubstr("Solo se admiten PostgreSQL desde la 12, SQL Server y SQLite."));
  EXPECT_THAT(Told("Driver=SQLite4;Database=a", why), Not(HasSubstr("Solo se admiten")));
  const QString address = "Una dirección como «postgresql://…» no es una cadena de conexión.";
  EXPECT_EQ(Told("postgresql://ana:secreto@a/centro", address), address.toStdString());
  EXPECT_THAT(Told("DSN=no_hay_tal;UID=ana"), HasSubstr("ningún origen de datos «no_hay_tal»"));
}

TEST(ConnectAnswer, OfBothKindsTellsAnUnknownHostAndAClosedPort) {
  for (const auto& [place, part] :
       {std::pair{"Server=no-hay.invalid;Port=1433",
                  "ningún servidor que se llame «no-hay.invalid»"},
        std::pair{"Server=127.0.0.1;Port=1",
                  "En «127.0.0.1» no contesta ninguna base de datos por el puerto 1."}})
    for (const auto* const kind : {"Driver={PostgreSQL Unicode};%1;Database=a;UID=b",
                                   "Driver=FreeTDS;%1;Database=a;UID=b;PWD=c;TDS_Version=7.4"})
      EXPECT_THAT(Told(QString(kind).arg(place)), HasSubstr(part)) << kind;
}

TEST(ConnectAnswer, NamesThePlaceOfADataSourceAndOfAStringThatSaysLittle) {
  const DataSources sources(
      "[aula]\nDriver=PostgreSQL Unicode\nServername=escuela\nDatabase=c\nUsername=ana\n");
  for (const auto& [string, place, port] :
       {std::tuple{"Driver=FreeTDS;Server=a;UID=b", "a", "1433"},
        std::tuple{"DSN=centro", "centro", "1433"}, std::tuple{"DSN=aula", "escuela", "5432"}})
    EXPECT_THAT(Told(string, "Connection refused"),
                StartsWith(std::string("En «") + place +
                           "» no contesta ninguna base de datos por el puerto " + port + "."));
  EXPECT_THAT(Told("DSN=aula", "password authentication failed"), HasSubstr("usuario («ana»)"));
}

// What a test's server doesn't do, in the words of the drivers.
TEST(ConnectAnswer, TellsWhatElseAServerRefuses) {
  const std::pair<const char*, const char*> refusals[] = {
      {"[08001] FATAL:  no pg_hba.conf entry for host \"10.0.0.7\", user \"b\", database \"a\"",
       "no deja entrar desde este equipo al usuario «b» en la base de datos «a»"},
      {"[08001] root certificate file \"/home/b/.postgresql/root.crt\" does not exist",
       "su certificado raíz, o el nombre «s» no es el del certificado"},
      {"[08001] SSL error: certificate verify failed", "No se puede comprobar que el servidor sea"},
      {"[08001] FATAL:  sorry, too many clients already", "no admite más conexiones ahora mismo"},
      {"[08001] connection to server at \"s\", port 5432 failed: No route to host",
       "«s» no contesta. Compruebe la red, y que ningún cortafuegos cierra el puerto 5432."},
      {"[42501] ERROR: permission denied for table curso",
       "entra en la base de datos «a», pero no puede leer sus tablas"},
      {"[42000] [FreeTDS][SQL Server]Cannot open database \"a\" requested by the login. (4060)",
       "no hay ninguna base de datos «a»"},
      {"[28000] [FreeTDS][SQL Server]Login failed for user 'b'. (18456)",
       "no admite ese usuario («b»)"}};
  for (const auto& [why, part] : refusals)
    EXPECT_THAT(Told("Driver={PostgreSQL Unicode};Server=s;Port=5432;Database=a;UID=b", why),
                HasSubstr(part));
}

TEST(ConnectAnswer, OnAServerTellsThatItHasRoomForNobodyElse) {
  if (!OnServer()) GTEST_SKIP() << "no server";
  const auto database = TakeServerSchool();
  const auto limit = [&database](const char* connections) {
    OwnersConnection("postgres")
        .Execute("ALTER DATABASE " + database + " CONNECTION LIMIT " + connections);
  };
  limit("0");
  EXPECT_THAT(Told(QString::fromStdString(ServerString(database))),
              HasSubstr("no admite más conexiones"));
  limit("-1");
  GiveBackServerSchool(database);
}

TEST(ConnectAnswer, OnAServerTellsTheDatabaseThePasswordTheTablesAndTheEncryption) {
  if (!OnServer()) GTEST_SKIP() << "no server";
  const auto string = [](const std::string& database) {
    return QString::fromStdString(ServerString(database));
  };
  EXPECT_THAT(Told(string("no_hay_tal")), HasSubstr("ninguna base de datos «no_hay_tal»"));
  EXPECT_THAT(Told(string("postgres")), AllOf(HasSubstr("no tiene ninguna tabla de una escuela"),
                                              HasSubstr("«quorvane-escuela copiar»")));
  EXPECT_THAT(Told(string("postgres") + ";sslmode=require"), HasSubstr("no cifra la conexión"));
  odbc::ConnectionString wrong(ServerString("postgres"));
  wrong.Set("PWD", "no es esta");
  EXPECT_THAT(Told(QString::fromStdString(wrong.Text())),
              AllOf(HasSubstr("no admite ese usuario"), Not(HasSubstr("no es esta"))));
}

TEST(ConnectAnswer, OnAServerASchoolOpensAndHoldsOneConnectionUntilAScreenOpens) {
  if (!OnServer()) GTEST_SKIP() << "no server";
  const auto database = TakeServerSchool();
  {
    zendria::School school(SchoolAddress::Odbc(ServerString(database)));
    const auto held = [&database] {
      return OwnersConnection(database)
          .Execute("SELECT CAST(count(*) AS text) FROM pg_stat_activity WHERE datname='" +
                   database + "' AND pid<>pg_backend_pid()")
          .Fields(0)
          .Text();
    };
    for (int tries = 0; tries < 100 && held() != "1"; ++tries) QTest::qWait(20);
    EXPECT_EQ(held(), "1");
    school.Entrada().Open();
    EXPECT_EQ(held(), "2");
    EXPECT_FALSE(ServerDate(school.Centro()).empty());
  }
  GiveBackServerSchool(database);
}

TEST(ConnectAnswer, OnAServerTheDateIsTheServersWhereverThisMachineIsAndNobodySeesItAsked) {
  if (!OnServer()) GTEST_SKIP() << "no server";
  const auto database = TakeServerSchool();
  std::vector<std::string> days;
  // Somewhere between these two it is always another day than here.
  for (const std::string zone : {"Etc/GMT+12", "Etc/GMT-14"}) {
    OwnersConnection(database).Execute("ALTER DATABASE " + database + " SET timezone TO '" + zone +
                                       "'");
    zendria::School school(SchoolAddress::Odbc(ServerString(database)));
    int observed = 0;
    school.Centro().Observe([&](const auto&, const auto&) { ++observed; });
    cConfiguracion::Instancia().conLocalCentro = &school.Centro();
    std::string source;
    days.push_back(zendria::ZendriaCentroApi().ObtenerHoraSistema(source));
    cConfiguracion::Instancia().conLocalCentro = nullptr;
    EXPECT_EQ(observed, 0);
    EXPECT_EQ(days.back(),
              OwnersConnection(database)
                  .Execute("SELECT to_char(now() AT TIME ZONE '" + zone + "','DD/MM/YYYY')")
                  .Fields(0)
                  .Text());
  }
  EXPECT_NE(days.front(), days.back());
  OwnersConnection(database).Execute("ALTER DATABASE " + database + " RESET timezone");
  GiveBackServerSchool(database);
}

TEST(ConnectAnswer, OfTheLastServerThePasswordIsNotKept) {
  QTemporaryDir folder;
  const auto file = folder.filePath("zendria.ini");
  zendria::Preferences preferences(file);
  EXPECT_EQ(preferences.LastServer(), "");
  preferences.KeepServer("Driver=FreeTDS;Server=escuela;UID=ana;PWD={sec;reto}");
  EXPECT_EQ(preferences.LastServer(), "Driver=FreeTDS;Server=escuela;UID=ana");
  QSettings(file, QSettings::IniFormat).sync();
  const auto kept = FileBytes(file);
  EXPECT_TRUE(kept.contains("escuela") && !kept.contains("reto")) << kept.toStdString();
}

}  // namespace
}  // namespace quorvane::test
