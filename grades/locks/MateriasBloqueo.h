#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

// The list of the subjects that a grade form has loaded, "0,{a},{b}": what it will lock. While it
// grows each element has a comma on both sides, which is how repeats are found.

/// The list before the first subject.
std::string ListaMateriasBloqueo();
/// Adds the subject unless the list has it.
void AnotarMateria(std::string& strMateriasBloqueo, std::int32_t codMatDet);
/// After the last subject: drops the comma at the end; a list without subjects becomes empty.
void CerrarLista(std::string& strMateriasBloqueo);

/// The subjects of a closed list, without the leading 0.
std::vector<std::int32_t> MateriasDeLista(const std::string& strMateriasBloqueo);

}  // namespace quorvane
