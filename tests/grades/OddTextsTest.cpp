#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/grades/GradeSchool.h"
#include "tests/support/ScriptRun.h"

// Whatever letters a school's texts are of, the same gestures give the same statements, the same
// rows and, but for those letters, the same lists and grids.

namespace quorvane::test {
namespace {

struct OddText {
  std::string name;
  std::string text;
  std::string shown = text;
};

std::string Long() {
  std::string text;
  for (int i = 0; i < 100; ++i) text += "año";
  return text;
}

std::string Doubled(std::string text, char quote) {
  for (auto at = text.find(quote); at != std::string::npos; at = text.find(quote, at + 2))
    text.insert(at, 1, quote);
  return text;
}

/// A school all of whose texts begin with that one and go on with their row's number.
class OddSchool : public GradeSchool {
 public:
  explicit OddSchool(const std::string& text) {
    for (const auto pending : {1, 2, 3, 4}) Evalua(pending, 4);
    Sql("INSERT INTO Alumno (IDAlumno,codSeccion,OrdenSeccion,Anticipado,FechaBaja) VALUES "
        "(6,321,6,0,''); INSERT INTO Seccion_Alumno (codAlumno) VALUES (6)");
    for (const auto* const column :
         {"Alumno.Nombre", "Alumno.Apellido_1", "Alumno.Apellido_2", "Personal.Nombre",
          "Personal.Apellido1", "Personal.Apellido2", "Materia.Nombre", "Seccion.Descripcion",
          "Curso.Descripcion", "TipoEnsenanza.Nombre", "NumEvaluacion.Descripcion",
          "Nota.DescripcionCorta", "TipoNota.Nombre", "TipoMateria.Nombre"}) {
      const std::string name = column;
      const auto point = name.find('.');
      Sql("UPDATE " + name.substr(0, point) + " SET " + name.substr(point + 1) + "='" +
          Doubled(text, '\'') + "'||ID" + name.substr(0, point));
    }
  }
};

std::string RegisterScript() {
  return "nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso =32\nelegir cboSeccion =321\nver\n"
         "pulsar cmdAceptar\nver\nfila msgAlumnos 1 0\npulsar cmdPropiedades\nver\n"
         "pulsar cmdAgregar\nelegir cboCurso =31\nelegir cboSeccion =312\nelegir cboMateria #1\n"
         "ver\npulsar cmdAceptar\nver\nfila msgMaterias 1 0\npulsar cmdPropiedades\nver\n"
         "elegir lstDisponibles =3\npulsar cmdAgregarUno\nver\npulsar cmdAceptar\n"
         "pulsar cmdAceptar\npulsar cmdListar\nver\nelegir lstDisponibles #0\n"
         "doble lstDisponibles\nver\npulsar cmdAceptar\npestana TabDatos 2\n"
         "fila msgMaterias 1 0\ndocente 2\npulsar cmdPropMat\nver\npulsar cmdNProfesor\nver\n"
         "pulsar cmdAceptar\nver\npulsar cmdAceptar\n"
         "sql \"SELECT * FROM Alumno,Personal,Materia WHERE IDAlumno=IDMateria "
         "ORDER BY IDAlumno, IDPersonal\"\n";
}

std::string GradeScript(int node, int evaluacion) {
  std::string choice;
  if (node == 126) choice = "elegir cboAlumno #0\n";
  if (node == 127) choice = "elegir cboMateria #0\n";
  return "nodo " + std::to_string(node) +
         "\nelegir cboCursos =32\nelegir cboSecciones =321\nelegir cboEvaluaciones =" +
         std::to_string(evaluacion) + "\n" + choice +
         "ver\npulsar cmdNotaManual1(0)\nver\nlista rtvNotasAlumno 1 1\n"
         "editar rtvNotasAlumno 1 1 #2\nlista rtvNotasAlumno 1 5\neditar rtvNotasAlumno 1 5 #1\n"
         "ver\npulsar cmdAceptar\nver\npulsar cmdNotaManual1(1)\n";
}

std::string Script() {
  auto script = RegisterScript();
  for (const auto node : {124, 125, 126, 127})
    for (const auto evaluacion : {1, 4}) script += GradeScript(node, evaluacion);
  return script;
}

void Replace(nlohmann::json& json, const std::string& odd) {
  // As wide as its texts are.
  if (json.is_object()) json.erase("anchos");
  if (json.is_structured())
    for (auto& part : json) Replace(part, odd);
  if (!json.is_string()) return;
  auto text = json.get<std::string>();
  for (auto at = text.find("Texto"); at != std::string::npos; at = text.find("Texto", at)) {
    text.replace(at, 5, odd);
    at += odd.size();
  }
  json = text;
}

/// The JSON of those lines, the widths of columns left out, "Texto" written in another way.
std::vector<std::string> Shown(const ScriptResult& result, const std::string& word,
                               const std::string& odd) {
  std::vector<std::string> shown;
  for (const auto& line : result.Of(word)) {
    auto json = nlohmann::json::parse(line);
    Replace(json, odd);
    shown.push_back(json.dump());
  }
  return shown;
}

std::vector<std::string> FirstWords(const ScriptResult& result) {
  std::vector<std::string> words;
  for (const auto& line : result.lines) words.push_back(line.substr(0, line.find(' ')));
  return words;
}

class OddTextsTest : public ::testing::TestWithParam<OddText> {};

TEST_P(OddTextsTest, ChangeNothingButWhatIsShown) {
  const auto& odd = GetParam().text;
  const OddSchool expectedSchool("Texto");
  const auto expected = RunScript(expectedSchool, Script());
  ASSERT_EQ(expected.status, 0) << expected.Text();
  ASSERT_THAT(expected.Of("rechazo"), testing::IsEmpty()) << expected.Text();
  ASSERT_THAT(expected.Of("ver"), testing::SizeIs(44));

  const OddSchool school(odd);
  const auto result = RunScript(school, Script());
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.Sql(), expected.Sql());
  EXPECT_EQ(FirstWords(result), FirstWords(expected));
  EXPECT_EQ(school.Modulo(), expectedSchool.Modulo());
  for (const std::string word : {"ver", "lista", "fila"})
    EXPECT_EQ(Shown(result, word, ""), Shown(expected, word, GetParam().shown)) << word;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, OddTextsTest,
    testing::Values(OddText{"Quote", "O'Neil "}, OddText{"DoubleQuote", "el \"Rubio\" "},
                    OddText{"Brackets", "[a] ]b[ "}, OddText{"Tab", "uno\tdos "},
                    OddText{"LineBreak", "uno\ndos "}, OddText{"CarriageReturn", "uno\r\ndos "},
                    OddText{"Long", Long()}, OddText{"Hebrew", "שלום עולם "},
                    OddText{"Arabic", "مرحبا، "}, OddText{"CombiningAccents", "n\u0303a\u0301 "},
                    OddText{"Emoji", "👩‍🏫 "}, OddText{"Wildcards", "%_% "},
                    OddText{"EndOfStatement", "'; DROP TABLE Alumno; -- "},
                    OddText{"Plus", "' + ' "}, OddText{"Comment", "/* -- # */"},
                    OddText{"Blanks", "a  b  "}, OddText{"Mnemonic", "&A && B "},
                    OddText{"Control", "\x01\x1b[31m\x7f "},
                    OddText{"NotUtf8", "\xff\xc3 ", "\uFFFD\uFFFD "}),
    [](const auto& odd) { return odd.param.name; });

}  // namespace
}  // namespace quorvane::test
