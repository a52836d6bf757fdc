#include "apps/zendria/SheetPrinter.h"

#include <QDate>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

namespace quorvane::zendria {
namespace {

constexpr int kTitlePoints = 13;
constexpr int kTextPoints = 9;
constexpr double kCellPadding = 0.35;  // of a line's height, as the next
constexpr double kGap = 0.8;

constexpr int kCellFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;

QFont FontOf(int points, QFont::Weight weight) {
  auto font = QGuiApplication::font();
  font.setPointSize(points);
  font.setWeight(weight);
  return font;
}

/// Where everything stands on a page of that printer.
class Pages {
 public:
  Pages(const Sheet& sheet, QPrinter& printer)
      : sheet_(sheet),
        title_(FontOf(kTitlePoints, QFont::Bold)),
        text_(FontOf(kTextPoints, QFont::Normal)),
        heading_(FontOf(kTextPoints, QFont::Bold)),
        titleMetrics_(title_, &printer),
        metrics_(text_, &printer),
        room_(printer.pageLayout().paintRectPixels(printer.resolution())) {
    room_.moveTo(0, 0);
    ShareWidth(QFontMetricsF(heading_, &printer));
    headingHeight_ = sheet.headings.isEmpty() ? 0 : HeightOf(sheet.headings);
    first_ = HeightAbove() + headingHeight_;
    last_ = room_.height() - metrics_.height() * (1 + kGap);
    BreakPages();
  }

  [[nodiscard]] int Count() const { return static_cast<int>(begins_.size()); }

  void Paint(QPainter& painter, int page) const {
    auto y = PaintTitle(painter);
    if (!sheet_.headings.isEmpty()) {
      painter.setFont(heading_);
      y = PaintRow(painter, sheet_.headings, y);
    }
    painter.setFont(text_);
    const auto end =
        page + 1 < Count() ? begins_[static_cast<std::size_t>(page) + 1] : sheet_.rows.size();
    for (auto row = begins_[static_cast<std::size_t>(page)]; row < end; ++row)
      y = PaintRow(painter, sheet_.rows[row], y);
    PaintFoot(painter, page);
  }

 private:
  [[nodiscard]] double Padding() const { return metrics_.height() * kCellPadding; }

  /// A column gets what its widest text takes; where that is more than there is, the widest give
  /// up what is over a fair share, and wrap.
  void ShareWidth(const QFontMetricsF& bold) {
    const auto widen = [this](const QStringList& cells, const QFontMetricsF& metrics) {
      for (qsizetype i = 0; i < cells.size(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        if (at >= widths_.size()) widths_.resize(at + 1, 0);
        widths_[at] = std::max(widths_[at], metrics.horizontalAdvance(cells[i]) + 2.5 * Padding());
      }
    };
    widen(sheet_.headings, bold);
    for (const auto& row : sheet_.rows) widen(row, metrics_);
    auto left = room_.width();
    auto order = widths_;
    std::sort(order.begin(), order.end());
    auto most = left;
    for (std::size_t i = 0; i < order.size(); ++i) {
      most = left / static_cast<double>(order.size() - i);
      if (order[i] > most) break;
      left -= order[i];
    }
    for (auto& width : widths_) width = std::min(width, most);
  }

  [[nodiscard]] double HeightOf(const QStringList& cells) const {
    auto height = metrics_.height();
    for (qsizetype i = 0; i < cells.size(); ++i) {
      const QRectF room(0, 0, widths_[static_cast<std::size_t>(i)] - 2 * Padding(), 1e6);
      height = std::max(height, metrics_.boundingRect(room, kCellFlags, cells[i]).height());
    }
    return height + 2 * Padding();
  }

  [[nodiscard]] double HeightAbove() const {
    return titleMetrics_.height() +
           metrics_.height() * (static_cast<double>(sheet_.lines.size()) + kGap);
  }

  void BreakPages() {
    begins_.push_back(0);
    auto y = first_;
    for (std::size_t row = 0; row < sheet_.rows.size(); ++row) {
      const auto height = HeightOf(sheet_.rows[row]);
      if (y + height > last_ && row > begins_.back()) {
        begins_.push_back(row);
        y = first_;
      }
      y += height;
    }
  }

  double PaintTitle(QPainter& painter) const {
    painter.setFont(title_);
    painter.drawText(QRectF(0, 0, room_.width(), titleMetrics_.height()), Qt::AlignLeft,
                     titleMetrics_.elidedText(sheet_.title, Qt::ElideRight, room_.width()));
    painter.setFont(text_);
    auto y = titleMetrics_.height();
    for (const auto& line : sheet_.lines) {
      painter.drawText(QRectF(0, y, room_.width(), metrics_.height()), Qt::AlignLeft,
                       metrics_.elidedText(line, Qt::ElideRight, room_.width()));
      y += metrics_.height();
    }
    return HeightAbove();
  }

  double PaintRow(QPainter& painter, const QStringList& cells, double y) const {
    const auto height = HeightOf(cells);
    double x = 0;
    for (qsizetype i = 0; i < cells.size(); ++i) {
      const QRectF cell(x, y, widths_[static_cast<std::size_t>(i)], height);
      painter.drawRect(cell);
      painter.drawText(cell.adjusted(Padding(), 0, -Padding(), 0), kCellFlags, cells[i]);
      x += cell.width();
    }
    return y + height;
  }

  void PaintFoot(QPainter& painter, int page) const {
    const QRectF foot(0, room_.height() - metrics_.height(), room_.width(), metrics_.height());
    painter.drawText(foot, Qt::AlignLeft, QDate::currentDate().toString("dd/MM/yyyy"));
    painter.drawText(foot, Qt::AlignRight,
                     QStringLiteral("Página %1 de %2").arg(page + 1).arg(Count()));
  }

  const Sheet& sheet_;
  QFont title_;
  QFont text_;
  QFont heading_;
  QFontMetricsF titleMetrics_;
  QFontMetricsF metrics_;
  QRectF room_;
  std::vector<double> widths_;
  double headingHeight_ = 0;
  double first_ = 0;  // where the rows of a page begin, and where they have to end
  double last_ = 0;
  std::vector<std::size_t> begins_;  // the first row of each page
};

}  // namespace

int PagesOf(const Sheet& sheet, QPrinter& printer) { return Pages(sheet, printer).Count(); }

bool PrintSheet(const Sheet& sheet, QPrinter& printer) {
  const Pages pages(sheet, printer);
  const auto from = std::max(printer.fromPage(), 1);
  const auto to = printer.toPage() == 0 ? pages.Count() : std::min(printer.toPage(), pages.Count());
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  QPen pen(Qt::black);
  pen.setWidthF(printer.resolution() / 150.0);
  painter.setPen(pen);
  for (auto page = from; page <= to; ++page) {
    if (page > from && !printer.newPage()) return false;
    pages.Paint(painter, page - 1);
  }
  return painter.end() && printer.printerState() != QPrinter::Error;
}

}  // namespace quorvane::zendria
