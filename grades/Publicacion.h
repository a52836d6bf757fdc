#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// The publication of a grade form and its locks: the rows of `PublicacionPte` and `BloqueoPte`
/// that keep the users of the grade forms apart. A form holds one as long as it lives. Nothing but
/// `Devolver` removes the rows: a form that dies leaves them.
///
/// Nothing is caught: a statement that fails leaves as its error, and what was written stays.
class Publicacion {
 public:
  std::int32_t IDPublicacion = 0;  ///< 0 as long as none was written

  /// The test of `Form_Load`: whether this user is entering grades there already, in which case he
  /// has read so. Another user's publication is no obstacle.
  [[nodiscard]] static bool YaAbierta(std::int32_t seccion, std::int32_t evaluacion);

  /// Writes the publication and sets `IDPublicacion`. Error 429 before anything is written when
  /// the host has no `ZendriaApi.cCentroApi`.
  void InsertarPublicacion(std::int16_t gIDPersonal, std::int32_t evaluacion);

  /// Writes the lock of that subject unless somebody has it already; then nothing happens.
  void InsertarBloqueo(std::int32_t codMatDet, std::int16_t gIDPersonal,
                       std::int32_t evaluacion) const;

  /// The same for each subject of a list "0,{a},{b}" but the leading 0; none for the empty list.
  void InsertarBloqueos(const std::string& strMateriasBloqueo, std::int16_t gIDPersonal,
                        std::int32_t evaluacion) const;

  /// Deletes the locks, then the publication.
  void BorrarPublicacion() const;

  /// What `Form_Unload` of each grade form begins with, however the form closes: tells the host,
  /// deletes the publication, and runs `BorrarPublicacion`. Error 6 for a section or evaluation
  /// that the host's 16 bits can't hold.
  void Devolver(std::int32_t seccion, std::int32_t evaluacion) const;
};

}  // namespace quorvane
