#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "tools/screenshots/Terminal.h"
#include "tools/screenshots/Tour.h"

namespace quorvane::screenshots {
namespace {

constexpr auto kProgram = "quorvane-escuela";
constexpr auto kSchool = "escuela.sqlite";
constexpr auto kList = "pendientes.csv";

void Change(const QString& file, const std::vector<std::string>& statements) {
  sqlite::SqliteConnection school(file.toStdString(), "");
  school.Open();
  for (const auto& statement : statements) school.Execute(statement);
}

void WriteList(const QString& path) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly))
    file.write(
        "alumno;sección;materia;curso;evaluaciones\n"
        "\"Gómez Martín, Enzo\";3º ESO A;Matemáticas;2º ESO B;todas\n"
        "\"García Castro, Noa\";3º ESO B;Música;2º ESO B;1ª Evaluación + 2ª Evaluación\n"
        "\"Gómez Martín, Enso\";3º ESO A;Música;2º ESO B;todas\n");
}

}  // namespace

void Tour::TerminalOrders() {
  const auto folder = QFileInfo(school_).dir().filePath("terminal");
  Terminal terminal(camera_, folder);
  const auto school = QDir(folder).filePath(kSchool);
  terminal.Type({kProgram, "demo", kSchool}, false);

  terminal.Type({kProgram, "estado", kSchool, "--evaluacion", "2", "--detalle"});
  terminal.Take("terminal-estado");

  terminal.Type({kProgram, "informe", kSchool, "--seccion", "3º ESO A", "--salida", "3A.html"});
  terminal.Type({kProgram, "informe", kSchool, "--materia", "Matemáticas (2º ESO A)", "--en-blanco",
                 "--salida", "hoja.html"});
  terminal.Type({kProgram, "informe", kSchool, "--todas", "--salida", "informes"});
  terminal.Type({"ls", "-1", "informes"});
  terminal.Take("terminal-informe");

  terminal.Type({kProgram, "historial", kSchool, "activar"});
  Change(school, {"INSERT INTO BloqueoPte SELECT 0,2,CodMatDet,4,900 FROM AlumnoPte_MatDet WHERE "
                  "IDAlumnoPte_MatDet=1",
                  "UPDATE EvaluacionPte SET CodNota=6,CodNotaActitud=22 WHERE "
                  "CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=2",
                  "DELETE FROM BloqueoPte WHERE CodPublicacion=900"});
  terminal.Type({kProgram, "historial", kSchool, "ver", "--alumno", "29"});
  terminal.Type({kProgram, "historial", kSchool, "purgar", "--antes", "01/09/2024"});
  terminal.Take("terminal-historial");

  WriteList(QDir(folder).filePath(kList));
  terminal.Type({"cat", kList});
  terminal.Type({kProgram, "importar", kSchool, kList});
  terminal.Type({kProgram, "importar", kSchool, kList, "--lo-que-se-pueda"});
  terminal.Take("terminal-importar");

  Change(school, {"DELETE FROM PublicacionPte", "DELETE FROM BloqueoPte",
                  "INSERT INTO Seccion_AlumnoPte VALUES (5,9000,0,0)",
                  "INSERT INTO Profesor_Pte VALUES (0,20)"});
  terminal.Type({kProgram, "comprobar", kSchool});
  terminal.Type({kProgram, "reparar", kSchool});
  terminal.Take("terminal-reparar");
}

}  // namespace quorvane::screenshots
