#pragma once

#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>
#include <QTextItem>
#include <vector>

namespace quorvane::test {

/// A printer that keeps the texts of each page instead of printing them.
class TextPrinter : public QPrinter {
 public:
  TextPrinter() : QPrinter(HighResolution), print_(*this) {
    setOutputFormat(PdfFormat);
    setEngines(&print_, &paint_);
  }

  /// In the order in which they were drawn.
  [[nodiscard]] const std::vector<QStringList>& Pages() const { return pages_; }

 private:
  class Print final : public QPrintEngine {
   public:
    explicit Print(TextPrinter& printer) : printer_(printer) {
      measures_.setPageSize(QPageSize(QPageSize::A4));
    }
    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override {
      measures_.printEngine()->setProperty(key, value);
    }
    [[nodiscard]] QVariant property(PrintEnginePropertyKey key) const override {
      return measures_.printEngine()->property(key);
    }
    bool newPage() override {
      printer_.pages_.emplace_back();
      return true;
    }
    bool abort() override { return false; }
    [[nodiscard]] int metric(QPaintDevice::PaintDeviceMetric which) const override {
      return measures_.printEngine()->metric(which);
    }
    [[nodiscard]] QPrinter::PrinterState printerState() const override { return QPrinter::Active; }

   private:
    TextPrinter& printer_;
    QPrinter measures_{QPrinter::HighResolution};
  };

  class Paint final : public QPaintEngine {
   public:
    explicit Paint(TextPrinter& printer) : QPaintEngine(AllFeatures), printer_(printer) {}
    bool begin(QPaintDevice* /*device*/) override {
      printer_.pages_.assign(1, {});
      return true;
    }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& /*state*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*what*/,
                    const QRectF& /*from*/) override {}
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawTextItem(const QPointF& /*where*/, const QTextItem& item) override {
      printer_.pages_.back().append(item.text());
    }
    [[nodiscard]] Type type() const override { return User; }

   private:
    TextPrinter& printer_;
  };

  std::vector<QStringList> pages_;
  Print print_;
  Paint paint_{*this};
};

}  // namespace quorvane::test
