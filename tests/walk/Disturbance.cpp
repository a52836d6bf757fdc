#include "tests/walk/Disturbance.h"

#include <array>

namespace quorvane::test {
namespace {

/// The columns by which a row is told from the others.
std::string KeyOf(const std::string& table) {
  if (table == "BloqueoPte")
    return "CodProfesor,CodNumEvaluacion,CodMatDet,CodUsuario,CodPublicacion";
  return "ID" + table;
}

/// One row of the table, picked by that number, in the SQL that all engines have.
std::string OneOf(const std::string& table, const std::string& number) {
  const auto key = KeyOf(table);
  return " WHERE (" + key + ")=(SELECT " + key + " FROM " + table + " ORDER BY " + key +
         " LIMIT 1 OFFSET " + number +
         "%(SELECT CASE WHEN COUNT(*)=0 THEN 1 ELSE COUNT(*) END FROM " + table + "))";
}

std::string Pick(const std::string& column, const std::string& table, const std::string& number) {
  return "(SELECT " + column + " FROM " + table + OneOf(table, number) + ")";
}

/// Publications by others, each with a lock, and the end of one of them.
std::string Publications(Prng& random, const std::string& number) {
  if (random.Chance(40))
    return "DELETE FROM BloqueoPte WHERE CodPublicacion=" +
           Pick("IDPublicacionPte", "PublicacionPte", number) + ";DELETE FROM PublicacionPte " +
           "WHERE IDPublicacionPte NOT IN (SELECT CodPublicacion FROM BloqueoPte)";
  const auto user = std::to_string(1 + random.Below(6));
  const auto evaluation = std::to_string(1 + random.Below(6));
  return "INSERT INTO PublicacionPte VALUES ((SELECT COALESCE(MAX(IDPublicacionPte),0)+1 FROM "
         "PublicacionPte),0," +
         user + ",4," + evaluation + ");INSERT INTO BloqueoPte VALUES (0," + evaluation + "," +
         Pick("IDMateriaDetalles", "MateriaDetalles", number) + "," + user +
         ",(SELECT MAX(IDPublicacionPte) FROM PublicacionPte))";
}

}  // namespace

std::string RandomDisturbance(Prng& random) {
  const auto number = std::to_string(random.Below(1000));
  if (random.Chance(50)) return Publications(random, number);
  // Not the pending subjects: the next new one may take the number of one that has gone, and with
  // it the grades left behind.
  static const std::array<const char*, 8> kTables{"Alumno",   "MateriaDetalles", "Nota",
                                                  "Personal", "EvaluacionPte",   "BloqueoPte",
                                                  "TipoNota", "Seccion"};
  switch (random.Below(6)) {
    case 0:
      return "UPDATE EvaluacionPte SET CodNota=" + Pick("IDNota", "Nota", number) +
             ", Evaluado=-1" + OneOf("EvaluacionPte", number);
    case 1:
      return "UPDATE EvaluacionActaPte SET CodNota=" + Pick("IDNota", "Nota", number) +
             ", Evaluado=-1" + OneOf("EvaluacionActaPte", number);
    case 2:
      return "INSERT INTO BloqueoPte VALUES (0," + std::to_string(1 + random.Below(6)) + "," +
             Pick("IDMateriaDetalles", "MateriaDetalles", number) + ",1," +
             std::to_string(kLostPublication + random.Below(9)) + ")";
    case 3:
      return "UPDATE Alumno SET FechaBaja='01/02/2026'" + OneOf("Alumno", number);
    case 4:
      return "UPDATE AlumnoPte_MatDet SET Orden=" + std::to_string(random.Below(5)) +
             OneOf("AlumnoPte_MatDet", number);
    default: {
      const std::string table = random.OneOf(kTables);
      return "DELETE FROM " + table + OneOf(table, number);
    }
  }
}

}  // namespace quorvane::test
