#include <QFile>
#include <QListWidget>
#include <QTest>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using BadFilesTest = HostTest;

bool Holds(const QString& text, const char* part) { return text.contains(QString(part)); }

TEST_F(BadFilesTest, Missing) {
  const auto text = Refusal(folder_.filePath("nada.sqlite"));
  EXPECT_TRUE(Holds(text, "nada.sqlite")) << text.toStdString();
  EXPECT_TRUE(Holds(text, "no existe")) << text.toStdString();
  EXPECT_FALSE(QFile::exists(folder_.filePath("nada.sqlite"))) << "it isn't made either";
}

TEST_F(BadFilesTest, AFolder) {
  const auto text = Refusal(folder_.path());
  EXPECT_TRUE(Holds(text, "carpeta")) << text.toStdString();
}

TEST_F(BadFilesTest, AConnectionStringIsNotRepeated) {
  const auto text = Refusal(folder_.filePath("Driver=PostgreSQL;PWD=secreto"));
  EXPECT_TRUE(Holds(text, "--odbc")) << text.toStdString();
  EXPECT_FALSE(Holds(text, "secreto")) << text.toStdString();
}

TEST_F(BadFilesTest, APipeIsNotWaitedFor) {
  const auto pipe = folder_.filePath("tuberia");
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  const auto text = Refusal(pipe);
  EXPECT_TRUE(Holds(text, "no es un archivo corriente")) << text.toStdString();
}

TEST_F(BadFilesTest, Empty) {
  const auto text = Refusal(MakeFile("vacía.sqlite", ""));
  EXPECT_TRUE(Holds(text, "vacío")) << text.toStdString();
}

TEST_F(BadFilesTest, Unreadable) {
  const auto file = MakeFile("cerrada.sqlite", "x");
  QFile::setPermissions(file, {});
  if (QFile(file).open(QIODevice::ReadOnly)) GTEST_SKIP() << "this user reads every file";
  const auto text = Refusal(file);
  EXPECT_TRUE(Holds(text, "leer")) << text.toStdString();
}

TEST_F(BadFilesTest, NoDatabase) {
  const auto text = Refusal(MakeFile("carta.txt", "Querida escuela:\n\nno soy una escuela.\n"));
  EXPECT_TRUE(Holds(text, "no es una base de datos")) << text.toStdString();
}

TEST_F(BadFilesTest, AForeignDatabase) {
  for (const auto* const table : {"Alumno", "Usuario", "Personal", "BloqueoPte"})
    school_.Sql(std::string("DROP TABLE ") + table);
  const auto text = Refusal(SchoolFile());
  EXPECT_TRUE(Holds(text, "no es una escuela")) << text.toStdString();
  EXPECT_TRUE(Holds(text, "BloqueoPte")) << text.toStdString();
  EXPECT_TRUE(Holds(text, "Usuario")) << text.toStdString();
}

TEST_F(BadFilesTest, AMissingColumn) {
  school_.Sql("ALTER TABLE Nota RENAME COLUMN Aprobado TO Superado");
  const auto text = Refusal(SchoolFile());
  EXPECT_TRUE(Holds(text, "Aprobado")) << text.toStdString();
}

TEST_F(BadFilesTest, AMissingColumnOfTheHosts) {
  school_.Sql("ALTER TABLE Usuario RENAME COLUMN CodPerfil TO Otro");
  const auto text = Refusal(SchoolFile());
  EXPECT_TRUE(Holds(text, "CodPerfil")) << text.toStdString();
}

TEST_F(BadFilesTest, AUserWhoIsNotThere) {
  QString text;
  ReadNotice(text);
  EXPECT_FALSE(window_->OpenSchool(SchoolFile(), 99));
  EXPECT_TRUE(Holds(text, "no hay ningún usuario 99")) << text.toStdString();
}

TEST_F(BadFilesTest, TheSchoolThatWasOpenStays) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  Refusal(folder_.filePath("nada.sqlite"));
  EXPECT_TRUE(window_->HasSchool());
  EXPECT_EQ(LabelText("fichero"), SchoolFile());
}

}  // namespace
}  // namespace quorvane::test
