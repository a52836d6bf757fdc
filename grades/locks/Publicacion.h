#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// The publication of a grade form and its locks: rows of `PublicacionPte` and `BloqueoPte`. The
/// locks keep two forms from loading the same subject in one evaluation; the publication says whose
/// they are. A form has one from the end of its loading, if it found anything to grade, until
/// `Devolver`. The rows of a form that dies stay, until somebody with the host's tools removes
/// them.
///
/// Nothing is caught: a statement that fails leaves as its error, and what was written stays.
class Publicacion {
 public:
  std::int32_t IDPublicacion = 0;  ///< 0 as long as none was written

  /// The test of `Form_Load`: whether this user has a publication for that section and evaluation,
  /// in which case he has read so. Another user's is no obstacle. As a publication doesn't say its
  /// section, but always 4, only section 4 is ever refused, and then for any section of his.
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
  /// deletes the publication, and runs `BorrarPublicacion`. Without a publication the statements
  /// run with key 0. Error 6 for a section or evaluation that the host's 16 bits can't hold.
  void Devolver(std::int32_t seccion, std::int32_t evaluacion) const;
};

}  // namespace quorvane
