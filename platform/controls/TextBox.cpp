#include "platform/controls/TextBox.h"

#include "platform/text/Utf8.h"

namespace quorvane {

void TextBox::Text(const std::string& text) {
  if (text == text_) return;
  Assign(text_, text);
  if (Change) Change();
}

void TextBox::TypeKey(const std::string& character) {
  const auto typed = static_cast<int>(Utf8Decode(character).front());
  auto code = typed;
  if (KeyPress) KeyPress(code);
  if (code == 0) return;
  Text(text_ + (code == typed ? character : Utf8Encode(static_cast<char32_t>(code))));
}

}  // namespace quorvane
