#pragma once

#include <string>

namespace quorvane {

/// A name as it is looked up: small letters without accents (an ñ stays one), one blank between
/// words. Order signs are letters: "2º" and "2o" are alike, and so are "1ª" and "1a".
std::string FoldedText(const std::string& text);

}  // namespace quorvane
