#pragma once

#include <array>
#include <string>

#include "apps/escuela/Prng.h"

namespace quorvane::test {

/// A lock that lost its publication bears a number from here on: the next publication takes the
/// highest plus one, and would take such locks for its own.
inline constexpr int kLostPublication = 900;

/// Statements of other users, of the host and of programs that died: what the module may find
/// changed when its next screen opens.
inline std::string RandomDisturbance(Prng& random) {
  const auto number = std::to_string(random.Below(1000));
  // One row of the table, picked by that number, in the SQL that all engines have.
  const auto oneOf = [&number](const std::string& table) {
    const auto key = table == "BloqueoPte"
                         ? "CodProfesor,CodNumEvaluacion,CodMatDet,CodUsuario,CodPublicacion"
                         : "ID" + table;
    return " WHERE (" + key + ")=(SELECT " + key + " FROM " + table + " ORDER BY " + key +
           " LIMIT 1 OFFSET " + number +
           "%(SELECT CASE WHEN COUNT(*)=0 THEN 1 ELSE COUNT(*) END FROM " + table + "))";
  };
  const auto keyOf = [&oneOf](const std::string& table) {
    return "(SELECT ID" + table + " FROM " + table + oneOf(table) + ")";
  };
  const auto oneToSix = [&random] { return std::to_string(1 + random.Below(6)); };
  // Publications by others, each with a lock, and the end of one of them.
  if (random.Chance(50)) {
    if (random.Chance(40))
      return "DELETE FROM BloqueoPte WHERE CodPublicacion=" + keyOf("PublicacionPte") +
             ";DELETE FROM PublicacionPte WHERE IDPublicacionPte NOT IN "
             "(SELECT CodPublicacion FROM BloqueoPte)";
    const auto user = oneToSix();
    const auto evaluation = oneToSix();
    return "INSERT INTO PublicacionPte VALUES ((SELECT COALESCE(MAX(IDPublicacionPte),0)+1 FROM "
           "PublicacionPte),0," +
           user + ",4," + evaluation + ");INSERT INTO BloqueoPte VALUES (0," + evaluation + "," +
           keyOf("MateriaDetalles") + "," + user +
           ",(SELECT MAX(IDPublicacionPte) FROM PublicacionPte))";
  }
  // Not the pending subjects: the next new one may take the number of one that has gone, and with
  // it the grades left behind.
  static const std::array<const char*, 8> kTables{"Alumno",   "MateriaDetalles", "Nota",
                                                  "Personal", "EvaluacionPte",   "BloqueoPte",
                                                  "TipoNota", "Seccion"};
  const auto grade = [&](const std::string& table) {
    return "UPDATE " + table + " SET CodNota=" + keyOf("Nota") + ", Evaluado=-1" + oneOf(table);
  };
  switch (random.Below(6)) {
    case 0:
      return grade("EvaluacionPte");
    case 1:
      return grade("EvaluacionActaPte");
    case 2:
      return "INSERT INTO BloqueoPte VALUES (0," + oneToSix() + "," + keyOf("MateriaDetalles") +
             ",1," + std::to_string(kLostPublication + random.Below(9)) + ")";
    case 3:
      return "UPDATE Alumno SET FechaBaja='01/02/2026'" + oneOf("Alumno");
    case 4:
      return "UPDATE AlumnoPte_MatDet SET Orden=" + std::to_string(random.Below(5)) +
             oneOf("AlumnoPte_MatDet");
    default: {
      const std::string table = random.OneOf(kTables);
      return "DELETE FROM " + table + oneOf(table);
    }
  }
}

}  // namespace quorvane::test
