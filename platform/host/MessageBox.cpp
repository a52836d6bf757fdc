#include "platform/host/MessageBox.h"

#include "platform/host/Application.h"
#include "platform/text/StringTable.h"

namespace quorvane {

void MessageBox(const std::string& text, MessageIcon icon) {
  Application::Instance().Screen().Message(icon, LoadString(kTitleString), text);
}

void BeepAndMessage(const std::string& text, MessageIcon icon) {
  Application::Instance().Screen().Beep();
  MessageBox(text, icon);
}

}  // namespace quorvane
