// What a colour scheme leaves invisible is seen all the same.

#include <QAbstractButton>
#include <QCheckBox>
#include <QPalette>
#include <QRadioButton>
#include <QStyleFactory>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "adapters/qt/views/IconStore.h"
#include "apps/zendria/BarDelegate.h"
#include "apps/zendria/VisibleStyle.h"

namespace quorvane::test {
namespace {

using zendria::VisibleStyle;

QPalette Dark() {
  return {Qt::white, QColor(45, 45, 48),    QColor(80, 80, 84),
          Qt::black, QColor(110, 110, 112), Qt::white,
          Qt::white, QColor(30, 30, 32),    QColor(45, 45, 48)};
}

/// The greatest difference in lightness between any of its points and that ground.
int Difference(const QImage& image, const QColor& ground) {
  auto greatest = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const auto colour = image.pixelColor(x, y);
      if (colour.alpha() < 128) continue;
      greatest = std::max(greatest, std::abs(colour.lightness() - ground.lightness()));
    }
  return greatest;
}

TEST(VisibleStyleTest, HintsAreTakenFromTheTextWhereTheyCouldNotBeSeen) {
  VisibleStyle style;
  auto palette = Dark();
  palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
  style.polish(palette);
  EXPECT_GT(palette.color(QPalette::PlaceholderText).lightness(), 120);
  EXPECT_LT(palette.color(QPalette::PlaceholderText).lightness(), 220) << "still only a hint";

  QPalette light(Qt::lightGray);
  light.setColor(QPalette::Base, Qt::white);
  const QColor own(90, 90, 120);
  light.setColor(QPalette::PlaceholderText, own);
  style.polish(light);
  EXPECT_EQ(light.color(QPalette::PlaceholderText), own) << "what can be seen stays";
}

template <class Button>
void ExpectSeenOnDarkGround() {
  const auto seen = [](QStyle& style) {
    Button box;
    box.setStyle(&style);
    box.setPalette(Dark());
    box.resize(20, 20);
    return Difference(box.grab().toImage(), Dark().color(QPalette::Window));
  };
  const std::unique_ptr<QStyle> bare(QStyleFactory::create("Fusion"));
  VisibleStyle style;
  style.setBaseStyle(QStyleFactory::create("Fusion"));
  EXPECT_LT(seen(*bare), 60) << "or it isn't needed any more";
  EXPECT_GT(seen(style), 90);
}

TEST(VisibleStyleTest, ABoxToBeCheckedIsSeenOnDarkGround) { ExpectSeenOnDarkGround<QCheckBox>(); }

TEST(VisibleStyleTest, AChoiceIsSeenOnDarkGround) { ExpectSeenOnDarkGround<QRadioButton>(); }

TEST(VisibleStyleTest, APartIsReadBeforeItsBar) {
  const auto lightest = [](bool selected) {
    QTreeWidget tree;
    tree.setPalette(Dark());
    tree.setItemDelegate(new zendria::BarDelegate(&tree));
    auto* const item = new QTreeWidgetItem(&tree, {"100 %"});
    item->setData(0, zendria::BarDelegate::kPercentRole, 100);
    item->setSelected(selected);
    const auto place = tree.visualItemRect(item);
    return Difference(tree.viewport()->grab(place).toImage(), Qt::black);
  };
  EXPECT_GT(lightest(false), 250);
  EXPECT_GT(lightest(true), 250);
}

TEST(VisibleStyleTest, ArrowsAreSeenOnDarkButtons) {
  const auto before = QApplication::palette();
  const auto seen = [] {
    const auto ground = QApplication::palette().color(QPalette::Button);
    const auto icon = qt::IconStore::Load("FlechaArriba.ico");
    return Difference(icon.pixmap(24, 24).toImage(), ground);
  };
  const auto onLight = seen();
  QApplication::setPalette(Dark());
  EXPECT_GT(seen(), 80);
  QApplication::setPalette(before);
  EXPECT_EQ(seen(), onLight);
}

}  // namespace
}  // namespace quorvane::test
