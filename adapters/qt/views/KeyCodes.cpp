#include "adapters/qt/views/KeyCodes.h"

#include <Qt>
#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::qt {
namespace {

constexpr std::array<std::pair<int, int>, 22> kKeys{{
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},  {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},     {Qt::Key_Up, 38},       {Qt::Key_Right, 39},   {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46},
}};

}  // namespace

int KeyCode(int qtKey) {
  if ((qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) || (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z))
    return qtKey;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return 112 + (qtKey - Qt::Key_F1);
  const auto* const found = std::find_if(kKeys.begin(), kKeys.end(),
                                         [qtKey](const auto& key) { return key.first == qtKey; });
  return found == kKeys.end() ? 0 : found->second;
}

}  // namespace quorvane::qt
