#include "platform/data/Recordset.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/data/RecordsetFilter.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {

Recordset::Recordset(std::shared_ptr<const FieldNames> names, std::vector<Value> cells)
    : names_(std::move(names)), cells_(std::move(cells)) {
  if (names_ != nullptr && names_->empty()) names_ = nullptr;
  if (names_ != nullptr) rows_ = cells_.size() / names_->size();
}

void Recordset::Close() { *this = Recordset(); }

void Recordset::RequireOpen() const {
  if (!IsOpen()) throw RuntimeError(ErrorNumber::ObjectClosed);
}

std::size_t Recordset::RecordCount() const {
  RequireOpen();
  return filtered_ ? passing_.size() : rows_;
}

bool Recordset::Eof() const { return position_ >= static_cast<std::ptrdiff_t>(RecordCount()); }

bool Recordset::Bof() const { return RecordCount() == 0 || position_ < 0; }

void Recordset::MoveFirst() {
  if (RecordCount() == 0) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  position_ = 0;
}

void Recordset::MoveNext() {
  if (Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  ++position_;
}

void Recordset::MovePrevious() {
  if (Bof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  --position_;
}

std::size_t Recordset::CurrentRow() const {
  if (Bof() || Eof()) throw RuntimeError(ErrorNumber::NoCurrentRecord);
  const auto position = static_cast<std::size_t>(position_);
  return filtered_ ? passing_[position] : position;
}

const Value& Recordset::Fields(std::string_view name) const {
  const auto& names = Names();
  for (std::size_t i = 0; i < names.size(); ++i)
    if (EqualNoCase(names[i], name)) return Fields(i);
  throw RuntimeError(ErrorNumber::UnknownField,
                     "No se encuentra el campo " + std::string(name) + " en la colección");
}

const Value& Recordset::Fields(std::size_t position) const {
  if (position >= Names().size()) throw RuntimeError(ErrorNumber::UnknownField);
  return cells_[CurrentRow() * names_->size() + position];
}

const FieldNames& Recordset::Names() const {
  RequireOpen();
  return *names_;
}

void Recordset::Filter(const std::string& conditions) {
  const auto& names = Names();
  const RecordsetFilter filter(conditions, names);
  filtered_ = !filter.Empty();
  passing_.clear();
  position_ = 0;
  if (!filtered_) return;
  for (std::size_t row = 0; row < rows_; ++row)
    if (filter.Passes(&cells_[row * names.size()])) passing_.push_back(row);
}

}  // namespace quorvane
