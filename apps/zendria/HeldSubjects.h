#pragma once

#include <QString>
#include <cstdint>
#include <map>
#include <vector>

namespace quorvane {
class Connection;
}

namespace quorvane::zendria {

class GradeForm;
struct User;

/// What a grade form is about to look for, or has looked for; 0 for what isn't fixed.
struct SubjectsSought {
  std::int32_t section = 0;
  std::int32_t evaluation = 0;
  std::int32_t student = 0;      ///< this one's alone
  std::int32_t subject = 0;      ///< this one alone
  std::int32_t publication = 0;  ///< the form's own: what bears it isn't missing

  bool operator==(const SubjectsSought&) const = default;
};

/// What that form has looked for.
SubjectsSought SoughtBy(const GradeForm& form);

/// A subject that somebody's grade form holds, so that no other form shows it.
struct HeldSubject {
  std::int32_t detail = 0;  ///< its `IDMateriaDetalles`
  QString subject;          ///< "Matemáticas (2º ESO A)"
  QString holder;           ///< empty when nobody bears the lock's number
  bool own = false;
};

/// Reads, for the host, who somebody is in the school and what is kept from him. Fails as its
/// statements do.
class SubjectReader {
 public:
  /// `school` is the host's own connection, neither traced nor observed; both outlive the reader.
  SubjectReader(Connection& school, const User& user) : school_(school), user_(user) {}

  /// The user's `Personal`, 0 for none.
  [[nodiscard]] std::int32_t Person() const;
  /// What he would grade there if nobody held it.
  [[nodiscard]] std::vector<HeldSubject> Held(const SubjectsSought& sought) const;
  /// Course and section, "1º ESO A"; empty for one that isn't there. Each is read once.
  const QString& Section(std::int32_t id);

 private:
  [[nodiscard]] QString Subject(std::int32_t detail) const;

  Connection& school_;
  const User& user_;
  std::map<std::int32_t, QString> sections_;
};

/// "Matemáticas (2º ESO A): la está calificando Ana Ruiz Soto. ..."; empty for none.
QString HeldText(const std::vector<HeldSubject>& held);

}  // namespace quorvane::zendria
