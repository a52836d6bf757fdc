#include "register/TeacherLoader.h"

#include <memory>
#include <string>

#include "frame/cConstCol.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "register/PersonName.h"

namespace quorvane {
namespace {

std::shared_ptr<cMatProf> ReadTeacher(const Recordset& row) {
  const cConstCol estados;
  auto matProf = std::make_shared<cMatProf>();
  matProf->IDMatDetalle = row.Fields("IDMateriaDetalles").AfterZero().Long();
  matProf->IDPersonal = row.Fields("IDPersonal").AfterZero().Long();
  matProf->NombreMat = row.Fields("MNombre").Text() + " (" + row.Fields("CDescripcion").Text() +
                       " - " + row.Fields("SDescripcion").Text() + ")";
  if (!row.Fields("IDPersonal").IsNull())
    matProf->NombreProf =
        PersonName(row.Fields("Apellido1"), row.Fields("Apellido2"), row.Fields("PNombre"));
  matProf->Estado = row.Fields("codMatDet").IsNull() ? estados.NUEVO : estados.NoModificado;
  return matProf;
}

}  // namespace

bool LoadTeachers(Connection& centro, std::int32_t tipoEnsenanza, std::int32_t curso, bool locked,
                  Collection<cMatProf>& colMatProf) {
  const auto orden =
      centro.Execute(Sql("SELECT Orden FROM Curso WHERE IDCurso={}", curso)).Fields("Orden").Long();
  auto rows = centro.Execute(Sql(
      "SELECT Seccion.Descripcion AS SDescripcion, Curso.Descripcion AS CDescripcion, MateriaDetalles.IDMateriaDetalles, Materia.Nombre AS MNombre, Personal.IDPersonal, Personal.Apellido1, Personal.Apellido2, Personal.Nombre AS PNombre, Profesor_pte.codMatDet FROM ((MateriaDetalles INNER JOIN (Seccion INNER JOIN Curso ON Curso.IDCurso=Seccion.codCurso) ON Seccion.IDSeccion=Materiadetalles.codSeccion) INNER JOIN Materia ON Materia.IDMateria=Materiadetalles.codMateria) LEFT JOIN (Profesor_pte LEFT JOIN Personal ON Personal.IDPersonal=Profesor_pte.codProfesor) ON Profesor_pte.codMatDet=Materiadetalles.IDMateriaDetalles WHERE Materia.CodTipoEnsenanza={} AND curso.Orden<{} ORDER BY curso.Orden, Seccion.Descripcion, Materia.Nombre",
      tipoEnsenanza, orden));
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto matProf = ReadTeacher(rows);
    if (!rows.Fields("IDPersonal").IsNull() && !locked)
      locked = !centro
                    .Execute(Sql("SELECT codprofesor FROM BloqueoPte where codprofesor={}",
                                 matProf->IDPersonal))
                    .Eof();
    colMatProf.Add(matProf, Key(matProf->IDMatDetalle));
  }
  return locked;
}

}  // namespace quorvane
