#include <QFile>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/zendria/HostTest.h"

namespace quorvane::test {
namespace {

using BadFilesTest = HostTest;

TEST_F(BadFilesTest, WhatIsNoFileIsToldAsWhatItIs) {
  const auto missing = folder_.filePath("nada.sqlite");
  EXPECT_THAT(Refusal(missing), AllOf(HasSubstr("nada.sqlite"), HasSubstr("no existe")));
  EXPECT_FALSE(QFile::exists(missing)) << "it isn't made either";
  EXPECT_THAT(Refusal(folder_.path()), HasSubstr("carpeta"));
  // It would hang whoever waits for it.
  const auto pipe = folder_.filePath("tuberia");
  ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  EXPECT_THAT(Refusal(pipe), HasSubstr("no es un archivo corriente"));
}

TEST_F(BadFilesTest, AConnectionStringIsNotRepeated) {
  EXPECT_THAT(Refusal(folder_.filePath("Driver=PostgreSQL;PWD=secreto")),
              AllOf(HasSubstr("--odbc"), Not(HasSubstr("secreto"))));
}

TEST_F(BadFilesTest, AFileThatIsNoDatabaseIsToldAsThat) {
  EXPECT_THAT(Refusal(MakeFile("vacía.sqlite", "")), HasSubstr("vacío"));
  EXPECT_THAT(Refusal(MakeFile("carta.txt", "Querida escuela:\n\nno soy una escuela.\n")),
              HasSubstr("no es una base de datos"));
}

TEST_F(BadFilesTest, Unreadable) {
  const auto file = MakeFile("cerrada.sqlite", "x");
  QFile::setPermissions(file, {});
  if (QFile(file).open(QIODevice::ReadOnly)) GTEST_SKIP() << "this user reads every file";
  EXPECT_THAT(Refusal(file), HasSubstr("leer"));
}

TEST_F(BadFilesTest, AForeignDatabase) {
  for (const auto* const table : {"Alumno", "Usuario", "Personal", "BloqueoPte"})
    school_.Sql(std::string("DROP TABLE ") + table);
  EXPECT_THAT(Refusal(SchoolFile()),
              AllOf(HasSubstr("no es una escuela"), HasSubstr("BloqueoPte"), HasSubstr("Usuario")));
}

TEST_F(BadFilesTest, AMissingColumnOfTheModulesOrTheHostsIsNamed) {
  school_.Sql("ALTER TABLE Nota RENAME COLUMN Aprobado TO Superado");
  EXPECT_THAT(Refusal(SchoolFile()), HasSubstr("Aprobado"));
  school_.Sql(
      "ALTER TABLE Nota RENAME COLUMN Superado TO Aprobado;"
      "ALTER TABLE Usuario RENAME COLUMN CodPerfil TO Otro");
  EXPECT_THAT(Refusal(SchoolFile()), HasSubstr("CodPerfil"));
}

TEST_F(BadFilesTest, AUserWhoIsNotThere) {
  EXPECT_THAT(Refusal(SchoolFile(), 99), HasSubstr("no hay ningún usuario 99"));
}

TEST_F(BadFilesTest, TheSchoolThatWasOpenStays) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  Refusal(folder_.filePath("nada.sqlite"));
  EXPECT_TRUE(window_->HasSchool());
  EXPECT_EQ(LabelText("fichero"), SchoolFile());
}

}  // namespace
}  // namespace quorvane::test
