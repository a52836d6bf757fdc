#include "tests/register/RegisterTest.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace quorvane::test {

std::string View(const ScriptResult& result, const std::string& control,
                 const std::string& member) {
  const auto views = result.Of("ver");
  if (views.empty()) throw std::runtime_error("nothing to see in\n" + result.Text());
  const auto form = nlohmann::ordered_json::parse(views.back());
  const auto& whole = control.empty() ? form : form.at("controles").at(control);
  return (member.empty() ? whole : whole.at(member)).dump();
}

void ExpectTexts(const ScriptResult& result, const std::string& title, const Lines& texts) {
  EXPECT_EQ(View(result, "", "titulo"), '"' + title + '"');
  for (const auto& text : texts) {
    const auto at = text.find('=');
    EXPECT_EQ(View(result, text.substr(0, at), "texto"), '"' + text.substr(at + 1) + '"') << text;
  }
}

void GiveRowsToAllMaterias(const SmallSchool& school) {
  for (const auto matDet : {3111, 3112, 3113, 3114, 3115, 3116, 3121, 3122, 3123})
    school.Profesor(0, matDet);
}

Lines Beginning(const ScriptResult& result, const Lines& texts) {
  auto statements = result.Sql();
  std::erase_if(statements, [&texts](const auto& statement) {
    return std::none_of(texts.begin(), texts.end(),
                        [&](const auto& text) { return statement.starts_with(text); });
  });
  return statements;
}

Lines AfterFirst(const ScriptResult& result, const std::string& command) {
  ScriptResult upTo;
  for (const auto& line : result.lines) {
    if (line.starts_with("> ") && !upTo.lines.empty() && upTo.lines.front() == "> " + command)
      break;
    if (line == "> " + command || !upTo.lines.empty()) upTo.lines.push_back(line);
  }
  return upTo.After(command);
}

Lines Join(const std::vector<Lines>& lists) {
  Lines all;
  for (const auto& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

Lines Saved(const ScriptResult& result) {
  auto lines = result.After("pulsar cmdAceptar");
  EXPECT_THAT(lines, SizeIs(testing::Ge(kLeft.size()))) << result.Text();
  const auto end = lines.end() - static_cast<std::ptrdiff_t>(std::min(kLeft.size(), lines.size()));
  EXPECT_EQ(std::vector(end, lines.end()), kLeft) << result.Text();
  lines.erase(end, lines.end());
  const std::string word = "sql centro ";
  for (auto& line : lines) {
    EXPECT_THAT(line, StartsWith(word)) << result.Text();
    line.erase(0, word.size());
  }
  return lines;
}

}  // namespace quorvane::test
