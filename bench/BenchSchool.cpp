#include "bench/BenchSchool.h"

#include <cstdio>
#include <filesystem>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/SchoolGenerator.h"
#include "frame/schema/SchoolSchema.h"

namespace quorvane::bench {
namespace {

constexpr const char* kSectionRows = R"sql(
INSERT INTO TipoEnsenanza VALUES (90,'Medida',90);
INSERT INTO Centro_TipoEnsenanza VALUES (90,1);
INSERT INTO Curso VALUES (251,'Curso anterior',90,1,0,0), (252,'Curso medido',90,2,0,-1);
INSERT INTO Seccion VALUES (9011,'A',251,0,90,0,0), (9021,'A',252,0,90,0,0);
INSERT INTO SistemaCalificacion VALUES (90,90,0);
INSERT INTO Modelo VALUES (90,90);
INSERT INTO TipoMateria VALUES (901,'Materia',1,90), (903,'Valores',3,90), (905,'Tutoría',5,90);
INSERT INTO TipoNota VALUES (9001,'Nota',1,-1,-1,0,-1,901), (9002,'Concepto',2,-1,-1,0,-1,901),
  (9003,'Observación del tutor',1,0,0,0,-1,905);
INSERT INTO NumEvaluacion VALUES (201,'1ª',0,0,1), (202,'2ª',0,0,2), (203,'3ª',0,0,3),
  (204,'Final',-1,0,1);
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<10)
  INSERT INTO Nota SELECT 90000+i,CAST(i AS TEXT),CASE WHEN i>4 THEN -1 ELSE 0 END,
    0,0,0,0,0,0,9001 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<5)
  INSERT INTO Materia SELECT 90000+i,'Materia '||i,0,0,90,901 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<5)
  INSERT INTO MateriaDetalles SELECT 900000+i,90000+i,9011,0,0,901 FROM n;
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30)
  INSERT INTO Alumno (IDAlumno,Nombre,Apellido_1,Apellido_2,CodSeccion,OrdenSeccion)
  SELECT 9000000+i,'Nombre '||i,'Apellido '||i,'Segundo '||i,9021,i FROM n;
INSERT INTO Seccion_AlumnoPte SELECT 9021,IDAlumno,0,0 FROM Alumno WHERE CodSeccion=9021;
INSERT INTO AlumnoPte_MatDet
  SELECT 9000000+(a.IDAlumno-9000001)*5+m.IDMateriaDetalles-900000,a.IDAlumno,m.IDMateriaDetalles,
    m.IDMateriaDetalles-900000,0
  FROM Alumno a, MateriaDetalles m WHERE a.CodSeccion=9021 AND m.CodSeccion=9011;
INSERT INTO EvaluacionPte
  SELECT 9000000+(p.IDAlumnoPte_MatDet-9000000)*3+e.IDNumEvaluacion-200,p.IDAlumnoPte_MatDet,
    e.IDNumEvaluacion,0,90006,0,0,0,0,0
  FROM AlumnoPte_MatDet p, NumEvaluacion e
  WHERE p.IDAlumnoPte_MatDet>9000000 AND e.IDNumEvaluacion BETWEEN 201 AND 203;
INSERT INTO EvaluacionActaPte
  SELECT IDAlumnoPte_MatDet,IDAlumnoPte_MatDet,204,0,90006,0,0,0
  FROM AlumnoPte_MatDet WHERE IDAlumnoPte_MatDet>9000000;
)sql";

}  // namespace

BenchSchool::BenchSchool(const std::string& folder, int students)
    : path_(std::filesystem::path(folder) / ("quorvane-medida-" + std::to_string(getpid()) + "-" +
                                             std::to_string(students) + ".sqlite")) {
  std::filesystem::remove(path_);
  sqlite::SqliteConnection school(path_, "", sqlite::OpenMode::Create);
  school.Open();
  for (const auto& statement : SchemaStatements(SqliteSchema())) school.Execute(statement);
  school.Execute("BEGIN");
  SchoolGenerator(school).Build(static_cast<std::size_t>(students), 1, [](std::size_t) {});
  school.ExecuteScript(kSectionRows);
  school.Execute("COMMIT");
  // As quorvane-escuela makes its schools.
  school.Execute("PRAGMA journal_mode=WAL");
}

BenchSchool::~BenchSchool() { std::filesystem::remove(path_); }

}  // namespace quorvane::bench
