#include "tests/support/SmallSchool.h"

#include <initializer_list>
#include <string>

namespace quorvane::test {
namespace {

constexpr const char* kPlaces = R"sql(
INSERT INTO TipoEnsenanza (IDTipoEnsenanza, Nombre, Orden) VALUES
  (1,'Infantil',1), (2,'Primaria',2), (3,'ESO',3), (4,'Bachillerato',4);
INSERT INTO Centro_TipoEnsenanza (CodTipoEnsenanza, CodCentro) VALUES
  (1,1), (2,1), (3,1), (4,1), (1,2), (2,2);
INSERT INTO Curso (IDCurso, Descripcion, codTipoEnsenanza, Orden, Promocion, RE_AC) VALUES
  (31,'1º ESO',3,1,0,0), (32,'2º ESO',3,2,0,0), (33,'3º ESO',3,3,0,0),
  (41,'1º Bachillerato',4,4,0,0);
INSERT INTO Seccion (IDSeccion, Descripcion, codCurso, CodTutor, CodModelo, Seguimiento,
                     AcumularObjetivos) VALUES
  (311,'A',31,0,1,0,0), (312,'B',31,0,1,0,0), (321,'A',32,1,1,0,0), (331,'A',33,0,1,0,0),
  (411,'A',41,0,2,0,0);
)sql";

constexpr const char* kPeople = R"sql(
INSERT INTO Usuario (IDUsuario, CodPadre, AdminSistema) VALUES
  (1,0,-1), (2,1,0), (3,1,0), (4,1,0);
INSERT INTO Personal (IDPersonal, Apellido1, Apellido2, Nombre, CodUsuario) VALUES
  (1,'Ruiz','Soto','Ana',2), (2,'Gil','Mora','Luis',3), (3,'Vega','Paz','Eva',0);
INSERT INTO Alumno (IDAlumno, Nombre, Apellido_1, Apellido_2, codSeccion, OrdenSeccion,
                    Anticipado, FechaBaja) VALUES
  (1,'Marta','Díaz','Cano',321,2,0,''), (2,'Íñigo','Ñúñez','Sanz',321,3,0,NULL),
  (3,'Jorge','Abad','Rey',321,1,0,''), (4,'Nora','Pérez','Gil',321,4,0,'01/02/2026'),
  (5,'Hugo','Blanco','Mas',331,1,0,'');
INSERT INTO Seccion_Alumno (codAlumno) VALUES (1), (2), (3), (4), (5);
)sql";

constexpr const char* kSubjects = R"sql(
INSERT INTO Materia (IDMateria, Nombre, Optativa, codMateriaAsociada, CodTipoEnsenanza,
                     CodTipoMateria) VALUES
  (1,'Lengua',0,0,3,10), (2,'Matemáticas',0,0,3,10), (3,'Francés',-1,0,3,10),
  (4,'Lectura',0,1,3,10), (5,'Valores',0,0,3,30), (6,'Taller',0,0,3,40), (7,'Historia',0,0,4,60);
INSERT INTO MateriaDetalles (IDMateriaDetalles, codMateria, codSeccion, CodPersonal,
                             CodPersonalAsociado, CodTipoMateria) VALUES
  (3111,1,311,2,0,10), (3112,2,311,0,0,10), (3113,3,311,0,0,10), (3114,4,311,2,0,10),
  (3115,5,311,0,0,30), (3116,6,311,0,0,40), (3121,1,312,2,0,10), (3122,2,312,0,0,10),
  (3123,3,312,0,0,10), (3211,1,321,2,0,10), (3212,2,321,0,0,10), (3311,1,331,0,0,10),
  (4117,7,411,0,0,60);
INSERT INTO NumEvaluacion (IDNumEvaluacion, Descripcion, Final, Extraordinaria, Orden) VALUES
  (1,'1ª Evaluación',0,0,1), (2,'2ª Evaluación',0,0,2), (3,'3ª Evaluación',0,0,3),
  (4,'Final',-1,0,1), (5,'Segunda final',-1,0,2), (6,'Extraordinaria',-1,-1,3),
  (7,'Segunda extraordinaria',-1,-1,4), (11,'Reservada',0,0,9);
INSERT INTO Seccion_NumEvaluacion (CodSeccion, CodNumEvaluacion)
  SELECT IDSeccion, IDNumEvaluacion FROM Seccion, NumEvaluacion;
)sql";

constexpr const char* kMarking = R"sql(
INSERT INTO SistemaCalificacion (IDSistemaCalificacion, CodTipoEnsenanza, Recuperaciones) VALUES
  (1,3,0), (2,4,-1);
INSERT INTO Modelo (IDModelo, CodSistemaCalificacion) VALUES (1,1), (2,2);
INSERT INTO TipoMateria (IDTipoMateria, Nombre, CodEspecificarTipoMateria, CodSistemaCalificacion)
VALUES
  (10,'Materia',1,1), (30,'Valores y actitudes',3,1), (40,'Formación en centros',4,1),
  (50,'Observaciones',5,1), (60,'Materia',1,2);
INSERT INTO TipoNota (IDTipoNota, Nombre, Orden, Abreviatura, Materia, Observacion, Evaluacion,
                      CodTipoMateria) VALUES
  (11,'Nota',1,-1,-1,0,-1,10), (12,'Observación',5,-1,-1,-1,-1,10), (31,'Valores',1,-1,-1,0,-1,30),
  (41,'Taller',1,-1,-1,0,-1,40), (51,'Observación del tutor',1,0,0,-1,-1,50),
  (61,'Nota',1,-1,-1,0,-1,60);
INSERT INTO Nota (IDNota, DescripcionCorta, Aprobado, NotaExcepcional, CodModelo, CodCurso,
                  CodNumEvaluacion, CodMateria, CodPersonal, CodTipoNota) VALUES
  (100,'0',0,0,0,0,0,0,0,11), (101,'1',0,0,0,0,0,0,0,11), (102,'2',0,0,0,0,0,0,0,11),
  (103,'3',0,0,0,0,0,0,0,11), (104,'4',0,0,0,0,0,0,0,11), (105,'5',-1,0,0,0,0,0,0,11),
  (106,'6',-1,0,0,0,0,0,0,11), (107,'7',-1,0,0,0,0,0,0,11), (108,'8',-1,0,0,0,0,0,0,11),
  (109,'9',-1,0,0,0,0,0,0,11), (110,'10',-1,0,0,0,0,0,0,11),
  (201,'Trabaja',-1,0,0,0,0,0,0,12), (202,'Mejora',-1,0,0,0,0,0,0,12),
  (301,'Bien',-1,0,0,0,0,0,0,31), (401,'Apto',-1,0,0,0,0,0,0,41), (402,'No apto',0,0,0,0,0,0,0,41),
  (501,'Sigue así',-1,0,0,0,0,0,0,51), (601,'Suficiente',-1,0,0,0,0,0,0,61);
)sql";

std::string List(std::initializer_list<int> numbers) {
  std::string list;
  for (const auto number : numbers) list += (list.empty() ? "" : ",") + std::to_string(number);
  return list;
}

}  // namespace

SmallSchool::SmallSchool() {
  Sql(std::string("BEGIN;") + kPlaces + kPeople + kSubjects + kMarking + "COMMIT;");
}

int SmallSchool::Numero(const std::string& select) const { return std::stoi(Rows(select).at(0)); }

void SmallSchool::Registra(int seccion, int alumno) const {
  Sql("INSERT INTO Seccion_AlumnoPte VALUES (" + List({seccion, alumno, 0, 0}) + ")");
}

int SmallSchool::Pendiente(int alumno, int matDet, int orden) const {
  const auto id = Numero("SELECT COALESCE(MAX(IDAlumnoPte_MatDet),0)+1 FROM AlumnoPte_MatDet");
  Sql("INSERT INTO AlumnoPte_MatDet VALUES (" + List({id, alumno, matDet, orden, 0}) + ")");
  return id;
}

void SmallSchool::Evalua(int pendiente, int evaluacion, int nota) const {
  const auto final = Numero("SELECT Final FROM NumEvaluacion WHERE IDNumEvaluacion=" +
                            std::to_string(evaluacion)) != 0;
  const std::string table = final ? "EvaluacionActaPte" : "EvaluacionPte";
  const auto id = Numero("SELECT COALESCE(MAX(ID" + table + "),0)+1 FROM " + table);
  Sql("INSERT INTO " + table + " VALUES (" + List({id, pendiente, evaluacion}) +
      (final ? ",0,0,0,0,0)" : ",0,0,0,0,0,0,0)"));
  if (nota != 0)
    Sql("UPDATE " + table + " SET Evaluado=-1, UltimaEvaluada=-1, CodNota=" + std::to_string(nota) +
        " WHERE ID" + table + "=" + std::to_string(id));
}

void SmallSchool::Profesor(int personal, int matDet) const {
  Sql("INSERT INTO Profesor_Pte VALUES (" + List({personal, matDet}) + ")");
}

void SmallSchool::Bloquea(int personal, int evaluacion, int matDet, int usuario,
                          int publicacion) const {
  Sql("INSERT INTO BloqueoPte VALUES (" +
      List({personal, evaluacion, matDet, usuario, publicacion}) + ")");
}

std::vector<std::string> SmallSchool::Modulo() const {
  std::vector<std::string> rows;
  for (const auto* const table :
       {"AlumnoPte_MatDet", "EvaluacionPte", "EvaluacionActaPte", "Seccion_AlumnoPte",
        "Profesor_Pte", "PublicacionPte", "BloqueoPte"})
    for (const auto& row : Rows(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2"))
      rows.push_back(std::string(table) + " " + row);
  return rows;
}

}  // namespace quorvane::test
