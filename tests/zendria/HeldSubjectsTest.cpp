// What the host reads of the locks, in a file and on a server.

#include <gtest/gtest.h>

#include "apps/zendria/HeldSubjects.h"
#include "apps/zendria/School.h"
#include "tests/support/ServerSchools.h"
#include "tests/support/SmallSchool.h"

namespace quorvane::test {
namespace {

using zendria::SubjectsSought;
using zendria::User;

TEST(HeldSubjectsTest, InAFileAndOnAServerEachSeesWhatIsKeptFromHim) {
  const SmallSchool small;
  for (const int subject : {3111, 3112}) {
    small.Evalua(small.Pendiente(1, subject, 1), 1);
    small.Bloquea(2, 1, subject, 3, 77);
  }
  small.Registra(321, 1);
  small.Profesor(2, 3112);
  zendria::School school(OnServer() ? SchoolAddress::Odbc(ServerString(small.Path()))
                                    : SchoolAddress::File(small.Path()));
  const auto held = [&school](const User& user, const SubjectsSought& sought) {
    return zendria::HeldText(zendria::SubjectReader(school.Own(), user).Held(sought));
  };
  const User head{1, "Dirección", 0, true};
  const User tutor{2, "Ana", 3, false};
  const User teacher{3, "Luis", 3, false};
  const User nobody{4, "Nadie", 3, false};
  const QString both =
      "Lengua (1º ESO A): la está calificando Luis Gil Mora.\n"
      "Matemáticas (1º ESO A): la está calificando Luis Gil Mora.";
  EXPECT_EQ(held(head, {321, 1}), both);
  EXPECT_EQ(held(tutor, {321, 1}), both);
  EXPECT_TRUE(held(teacher, {321, 1}).startsWith("Matemáticas (1º ESO A): la tiene abierta usted"));
  EXPECT_FALSE(held(teacher, {321, 1}).contains("Lengua"));
  EXPECT_EQ(held(nobody, {321, 1}), QString());
  // Another evaluation, section, student and subject, and the form's own publication.
  EXPECT_EQ(held(head, {321, 2}), QString());
  EXPECT_EQ(held(head, {331, 1}), QString());
  EXPECT_EQ(held(head, {321, 1, 2}), QString());
  EXPECT_EQ(held(head, {321, 1, 1, 3113}), QString());
  EXPECT_EQ(held(head, {321, 1, 0, 0, 77}), QString());
  EXPECT_EQ(zendria::SubjectReader(school.Own(), teacher).Person(), 2);
  EXPECT_EQ(zendria::SubjectReader(school.Own(), nobody).Person(), 0);
}

}  // namespace
}  // namespace quorvane::test
