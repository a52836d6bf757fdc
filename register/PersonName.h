#pragma once

#include <string>

#include "platform/data/Value.h"

namespace quorvane {

/// A person as the lists show him: "Apellido1 Apellido2, Nombre". What is Null leaves its blanks
/// and the comma behind.
inline std::string PersonName(const Value& apellido1, const Value& apellido2, const Value& nombre) {
  return apellido1.Text() + " " + apellido2.Text() + ", " + nombre.Text();
}

}  // namespace quorvane
