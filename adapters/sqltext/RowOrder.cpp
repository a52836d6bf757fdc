#include "adapters/sqltext/RowOrder.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "adapters/sqltext/Tokens.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::sqltext {
namespace {

/// A SELECT outside its brackets: where its order stands and what it gives.
class SelectText {
 public:
  explicit SelectText(std::string_view text) : text_(text) {
    for (std::size_t at = EndOfBlanks(text, 0); at < text.size();) {
      const auto end = EndOfToken(text_, at);
      Take(text.substr(at, end - at), at, end);
      at = EndOfBlanks(text, end);
    }
    CloseItem();
  }

  [[nodiscard]] bool IsPlain() const noexcept { return plain_ && place_ > Place::List; }

  [[nodiscard]] std::string Ordered() const {
    std::string result(text_.substr(0, items_.empty() ? end_ : items_.front().end));
    for (std::size_t i = 0; i < items_.size(); ++i) {
      result += items_[i].descends ? " NULLS LAST" : " NULLS FIRST";
      const auto next = i + 1 < items_.size() ? items_[i + 1].end : end_;
      result += text_.substr(items_[i].end, next - items_[i].end);
    }
    result += items_.empty() ? " ORDER BY 1" : ", 1";
    for (std::size_t column = 2; column <= columns_; ++column)
      result += "," + std::to_string(column);
    return result += text_.substr(end_);
  }

 private:
  enum class Place { Before, List, Source, Order };
  struct Item {
    std::size_t end = 0;
    bool descends = false;
  };

  void Take(std::string_view token, std::size_t at, std::size_t end) {
    if (token == ")") --depth_;
    if (depth_ == 0) TakeOutside(token, at);
    if (token == "(") ++depth_;
    end_ = end;
  }

  void TakeOutside(std::string_view token, std::size_t at) {
    const auto is = [token](const char* word) { return EqualNoCase(token, word); };
    const auto behindOrder = std::exchange(ordered_, is("ORDER"));
    if (at == EndOfBlanks(text_, 0)) {
      if (is("SELECT")) place_ = Place::List;
      return;
    }
    if (is("LIMIT") || is("OFFSET") || is("FETCH") || is("FOR") || is("INTO") || is("NULLS") ||
        is("GROUP") || token == ";")
      plain_ = false;
    if (place_ == Place::List) return TakeListed(token, is("FROM"));
    if (place_ == Place::Source && behindOrder && is("BY")) {
      place_ = Place::Order;
      return;
    }
    if (place_ != Place::Order) return;
    if (token == ",")
      CloseItem();
    else
      descends_ = is("DESC");
  }

  void TakeListed(std::string_view token, bool isFrom) {
    if (isFrom) {
      place_ = Place::Source;
      return;
    }
    // How many columns a star stands for the text doesn't tell.
    if (token == "*") starred_ = true;
    for (const auto* const single : {"MAX", "MIN", "COUNT", "SUM", "AVG"})
      if (EqualNoCase(token, single)) plain_ = false;
    if (token == "," && !starred_) ++columns_;
  }

  void CloseItem() {
    if (place_ == Place::Order) items_.push_back({end_, descends_});
    descends_ = false;
  }

  std::string_view text_;
  Place place_ = Place::Before;
  bool plain_ = true;
  bool starred_ = false;
  bool ordered_ = false;   ///< the last word was ORDER
  bool descends_ = false;  ///< the last word was DESC
  int depth_ = 0;
  std::size_t end_ = 0;  ///< behind the last token
  std::size_t columns_ = 1;
  std::vector<Item> items_;  ///< what it is ordered by
};

}  // namespace

std::string OrderAsInAFile(std::string_view statement) {
  const SelectText select(statement);
  return select.IsPlain() ? select.Ordered() : std::string(statement);
}

}  // namespace quorvane::sqltext
