#include "grades/locks/MateriasBloqueo.h"

#include "platform/data/Value.h"

namespace quorvane {

std::string ListaMateriasBloqueo() { return "0,"; }

void AnotarMateria(std::string& strMateriasBloqueo, std::int32_t codMatDet) {
  const auto materia = std::to_string(codMatDet) + ",";
  if (strMateriasBloqueo.find("," + materia) == std::string::npos) strMateriasBloqueo += materia;
}

void CerrarLista(std::string& strMateriasBloqueo) {
  if (strMateriasBloqueo.size() >= 3)
    strMateriasBloqueo.pop_back();
  else
    strMateriasBloqueo.clear();
}

std::vector<std::int32_t> MateriasDeLista(const std::string& strMateriasBloqueo) {
  std::vector<std::int32_t> materias;
  for (auto coma = strMateriasBloqueo.find(','); coma != std::string::npos;) {
    const auto siguiente = strMateriasBloqueo.find(',', coma + 1);
    materias.push_back(Value(strMateriasBloqueo.substr(coma + 1, siguiente - coma - 1)).Long());
    coma = siguiente;
  }
  return materias;
}

}  // namespace quorvane
