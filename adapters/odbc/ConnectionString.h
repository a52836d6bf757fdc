#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::odbc {

/// A connection string, "Driver=FreeTDS;Server=escuela;UID=zendria;PWD={a;b}", by its keywords,
/// which are matched without regard to case. A value that holds a semicolon stands in braces.
class ConnectionString {
 public:
  explicit ConnectionString(std::string_view text);

  /// Whether a text is a server's address in its place, "postgresql://escuela/centro", which no
  /// driver takes.
  static bool IsAddress(std::string_view text);

  /// Whether a text can be one at all, or an address in its place, rather than a file's name.
  static bool Looks(std::string_view text) {
    return text.find('=') != std::string_view::npos || IsAddress(text);
  }

  /// Whether it surely is one: a keyword stands in it that tells a driver where to go, or a secret;
  /// or it is an address.
  static bool Reads(std::string_view text);

  [[nodiscard]] bool Has(std::string_view keyword) const;
  /// The value without its braces; empty when there is none.
  [[nodiscard]] std::string Value(std::string_view keyword) const;
  /// In the place of the one that stands, or at the end.
  void Set(std::string_view keyword, std::string_view value);

  /// Why nobody should hand it to a driver manager, in Spanish and without any of its values: a
  /// keyword, a value or the whole is longer than managers and drivers have room for, which some of
  /// them overrun. Empty for one that may be used.
  [[nodiscard]] std::string TooLong() const;

  [[nodiscard]] std::string Text() const;
  /// What may be shown and kept: the keywords alone that are known to hold no password, and of them
  /// what is well-formed. A connection needs no other of those that drivers document.
  [[nodiscard]] std::string TextWithoutPassword() const;

 private:
  struct Entry {
    std::string keyword;
    std::string value;
  };

  static bool IsHarmless(const Entry& entry);
  [[nodiscard]] const Entry* Find(std::string_view keyword) const;

  std::vector<Entry> entries_;
};

}  // namespace quorvane::odbc
