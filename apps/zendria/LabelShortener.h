#pragma once

namespace quorvane {
class FrontEnd;
class Label;
}  // namespace quorvane

namespace quorvane::zendria {

/// Cuts the label's caption to its width, with "..." at the end, and keeps the whole in its tool
/// tip. A caption that fits stays, and so does the tool tip that it was cut from; so does one of a
/// label without a width.
void ShortenToWidth(Label& label, FrontEnd& screen);

}  // namespace quorvane::zendria
