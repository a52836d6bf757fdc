#include "grades/Escala.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/Anchos.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

}  // namespace

void ConfigurarRejilla(Retivo& rejilla, std::initializer_list<ColumnaInicial> columnas) {
  rejilla.Cols(static_cast<int>(columnas.size()));
  rejilla.Rows(1);
  int columna = 0;
  for (const auto& inicial : columnas) {
    rejilla.ColWidth(columna, inicial.ancho);
    rejilla.TextMatrix(0, columna, inicial.titulo);
    ++columna;
  }
}

void PrepararColumnas(Retivo& rejilla, int columnas, std::int32_t anchoPrimera,
                      const Titulos& strColumna) {
  rejilla.Cols(columnas);
  rejilla.Rows(1);
  for (int columna = 0; columna < columnas; ++columna)
    rejilla.ColWidth(columna, columna == 0 ? anchoPrimera : 0);
  for (std::size_t i = 0; i < strColumna.size(); ++i)
    rejilla.TextMatrix(0, static_cast<int>(i), strColumna[i]);
}

std::string TituloMaterias(std::int32_t tipo) {
  return Execute(
             "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND "
             "CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion "
             "WHERE CodTipoEnsenanza=" +
             std::to_string(tipo) + ")")
      .Fields("nombre")
      .Text();
}

void LeerEscala(Retivo& rejilla, std::int32_t tipo, const std::string& columna, Anchos& anchos,
                Titulos& strColumna) {
  auto recordset = Execute("SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE " + columna + "=" +
                           cConfiguracion::Instancia().Verdadero() +
                           " AND CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE "
                           "CodTipoEnsenanza=" +
                           std::to_string(tipo) + ") ORDER BY Orden");
  for (; !recordset.Eof(); recordset.MoveNext()) {
    const auto orden = recordset.Fields("Orden").Long();
    const auto nombre = recordset.Fields("Nombre").Text();
    rejilla.ColWidth(orden, kAnchoNota);
    anchos.Crecer(orden);
    rejilla.TextMatrix(0, orden, nombre);
    if (orden >= 1 && orden <= 5) strColumna[static_cast<std::size_t>(orden)] = nombre;
  }
}

void EscribirNota(Retivo& rejilla, int fila, int columna, std::int32_t idNota) {
  const auto recordset =
      Execute("SELECT DescripcionCorta FROM Nota WHERE IDNota=" + std::to_string(idNota));
  if (!recordset.Eof())
    rejilla.TextMatrix(fila, columna, recordset.Fields("DescripcionCorta").Text());
}

}  // namespace quorvane
