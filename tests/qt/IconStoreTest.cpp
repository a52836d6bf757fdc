#include <QImage>
#include <QPixmap>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "adapters/qt/views/IconStore.h"

namespace quorvane::test {
namespace {

using qt::IconStore;

bool Draws(const QIcon& icon, int size) {
  const auto image = icon.pixmap(size, size).toImage();
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y).alpha() > 0) return true;
  return false;
}

TEST(IconStoreTest, EveryPictureThatTheFormsNameIsDrawnAtAnySize) {
  for (const auto* name : {"zendria", "FlechaArriba", "FlechaAbajo", "Buscar", "delete"}) {
    const auto icon = IconStore::Load(std::string("C:\\Zendria\\iconos\\") + name + ".ico");
    for (const auto size : {16, 32, 200}) EXPECT_TRUE(Draws(icon, size)) << name << " " << size;
  }
}

TEST(IconStoreTest, AFileThatCanBeReadGoesFirst) {
  const QTemporaryDir folder;
  QImage red(8, 8, QImage::Format_ARGB32);
  red.fill(Qt::red);
  ASSERT_TRUE(red.save(folder.filePath("Buscar.png")));
  const auto path = folder.path().replace('/', '\\').toStdString() + "\\Buscar.png";
  const auto icon = IconStore::Load(path);
  EXPECT_EQ(icon.pixmap(8, 8).toImage().pixelColor(4, 4), QColor(Qt::red));
}

TEST(IconStoreTest, AnUnknownPictureIsNone) {
  EXPECT_TRUE(IconStore::Load("C:\\Zendria\\iconos\\Nada.ico").isNull());
  EXPECT_TRUE(IconStore::Load("").isNull());
}

TEST(IconStoreTest, TheBareButtonsOfAChoiceHaveArrows) {
  EXPECT_TRUE(Draws(IconStore::ForBareButton("cmdAnterior"), 16));
  EXPECT_TRUE(Draws(IconStore::ForBareButton("cmdSiguiente"), 16));
  EXPECT_TRUE(IconStore::ForBareButton("cmdAceptar").isNull());
}

}  // namespace
}  // namespace quorvane::test
