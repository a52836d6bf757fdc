#pragma once

#include <string>

namespace quorvane {

/// Passwords as they may be kept: by Argon2id, with their salt and costs in one text. To compute or
/// to compare one takes a noticeable part of a second and 64 MiB, on purpose: who has the file
/// tries few.

/// A password's text to keep, another one each time. Error 0x80004005 without the memory for it.
std::string PasswordHash(const std::string& password);
/// Whether a text is of the form, and bears the costs, of those that `PasswordHash` makes.
bool IsHashOfOurs(const std::string& hash);
/// Whether that is the password of a text which `PasswordHash` has made. A text of another make, or
/// of other costs, is nobody's, and isn't computed with.
bool IsPasswordOf(const std::string& hash, const std::string& password);
/// A hash of no password, that takes as long to compare: for who has none.
const std::string& NobodysHash();

/// Overwrites a password that isn't needed any more.
void Wipe(std::string& password);

}  // namespace quorvane
