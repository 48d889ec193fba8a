#include "ui/qt/pictures.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QPixmap>
#include <cctype>
#include <string>
#include <vector>

#include "ui/qt/text.h"

namespace velta::qt {
namespace {

/// Each of the SVG files, under the name by which the program asks for it.
class PicturesTest : public ::testing::TestWithParam<std::string> {
 protected:
  QIcon picture_ = Picture(ToQString(GetParam()));
};

TEST_P(PicturesTest, IsDrawnForEveryScreen) {
  for (const int size : {16, 24}) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
      const int pixels = static_cast<int>(size * scale);
      EXPECT_EQ(picture_.pixmap(QSize(size, size), scale).size(), QSize(pixels, pixels)) << scale;
      EXPECT_TRUE(picture_.availableSizes().contains(QSize(pixels, pixels)))
          << pixels << " is another size, enlarged or reduced";
    }
  }
}

TEST_P(PicturesTest, IsNotBlank) {
  for (const QSize size : picture_.availableSizes()) {
    const QImage image = picture_.pixmap(size).toImage();
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) painted += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    }
    EXPECT_GT(painted, image.width() * image.height() / 4) << size.width();
  }
}

std::vector<std::string> Drawings() {
  std::vector<std::string> names;
  const QDir folder(VELTA_SOURCE_DIR "/ui/qt/resources");
  QDirIterator files(folder.path(), {"*.svg"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    names.push_back(ToUtf8(folder.relativeFilePath(files.next()).chopped(4)));
  }
  return names;
}

INSTANTIATE_TEST_SUITE_P(Each, PicturesTest, ::testing::ValuesIn(Drawings()),
                         [](const auto& picture) {
                           std::string name = picture.param;
                           for (char& c : name) c = std::isalnum(c) != 0 ? c : '_';
                           return name;
                         });

TEST(PictureTest, TheLargeLogoIsDrawnForEveryScreen) {
  const QIcon logo = Picture("logo-large");
  for (const int size : {72, 112}) {
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
      const int pixels = static_cast<int>(size * scale);
      EXPECT_TRUE(logo.availableSizes().contains(QSize(pixels, pixels))) << pixels;
    }
  }
}

TEST(PictureTest, OneThatIsMissingEndsTheProgram) {
  EXPECT_DEATH((void)Picture("toolbar/nothing"), "There is no picture \"toolbar/nothing\"");
}

}  // namespace
}  // namespace velta::qt
