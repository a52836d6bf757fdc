#include "grades/grid/Escala.h"

#include "frame/cConfiguracion.h"
#include "grades/grid/Anchos.h"
#include "platform/controls/Retivo.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

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

std::string TituloMaterias(Connection& centro, std::int32_t tipo) {
  return centro
      .Execute(Sql(
          "SELECT Nombre FROM TipoMateria WHERE CodEspecificarTipoMateria=1 AND CodSistemaCalificacion IN (SELECT IDSistemaCalificacion FROM SistemaCalificacion WHERE CodTipoEnsenanza={})",
          tipo))
      .Fields("nombre")
      .Text();
}

Recordset TiposDeNota(Connection& centro, std::int32_t tipo) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  return centro.Execute(Sql(
      "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE Abreviatura={} AND CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza={}) ORDER BY Orden",
      verdadero, tipo));
}

Recordset TiposDeNotaFinal(Connection& centro, std::int32_t tipo) {
  const auto verdadero = cConfiguracion::Instancia().NumeroVerdadero();
  return centro.Execute(Sql(
      "SELECT DISTINCT Nombre, Orden FROM TipoNota WHERE abreviatura={} AND CodTipoMateria IN (SELECT CodTipoMateria FROM Materia WHERE CodTipoEnsenanza={}) ORDER BY Orden",
      verdadero, tipo));
}

void LeerEscala(Retivo& rejilla, Recordset tipos, Anchos& anchos, Titulos& strColumna) {
  for (; !tipos.Eof(); tipos.MoveNext()) {
    const auto orden = tipos.Fields("Orden").Long();
    const auto nombre = tipos.Fields("Nombre").Text();
    rejilla.ColWidth(orden, kAnchoNota);
    anchos.Crecer(orden);
    rejilla.TextMatrix(0, orden, nombre);
    if (orden >= 1 && orden <= 5) strColumna[static_cast<std::size_t>(orden)] = nombre;
  }
}

void EscribirNota(Connection& centro, Retivo& rejilla, int fila, int columna, std::int32_t idNota) {
  const auto recordset =
      centro.Execute(Sql("SELECT DescripcionCorta FROM Nota WHERE IDNota={}", idNota));
  if (!recordset.Eof())
    rejilla.TextMatrix(fila, columna, recordset.Fields("DescripcionCorta").Text());
}

}  // namespace quorvane
