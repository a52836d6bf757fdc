#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What may refuse a row among the words of a CREATE TABLE of a file, of which the engine's
/// catalogue tells nothing else, each once: "CHECK"; "ON CONFLICT", which may put a row in
/// another's place, or none; "DEFAULT", where it is computed; "STRICT"; and "COLLATE" before an
/// order that the engine doesn't know. Names, texts and comments are passed by.
std::vector<std::string> TableClauses(std::string_view createTable);

/// Whether one of them also keeps who only reads from his rows.
bool HarmsReaders(std::string_view clause);

}  // namespace quorvane
