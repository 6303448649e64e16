// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "diagram/diagramoperations.h"
#include "diagram/selection.h"
#include "gesture.h"
#include "tools/samplelan.h"

#include <QPainter>

#include <random>
#include <set>

namespace vnb::test {
namespace {

constexpr int white = 0xFFFFFF;

class Diagram : public testing::Test, protected EditorView {
protected:
  Diagram() {
    GridColor = 0x404040;
    GridRes = 20;
    operations.ClearLAN();
  }

  void add(std::int32_t lType, std::int32_t lX, std::int32_t lY) {
    operations.AddSystem(lType, lX, lY, 1, -1, -1, -1, {});
  }
  void open(const QString &path) { OpenLANFile(path, operations, view); }

  /// What the surface shows in `area`.
  QImage picture(const QRect &area) const {
    QImage image(area.size(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    surface.paint(painter, area);
    return image;
  }
  int pixel(int x, int y) const {
    return static_cast<int>(picture({x, y, 1, 1}).pixel(0, 0) & white);
  }
  /// Whether the window shows what a fresh painting would.
  void expectNoTraces() {
    QCoreApplication::processEvents();
    EXPECT_LE(difference(onScreen(container), picture(container.rect().translated(-surface.pos()))),
              8);
  }

  const Look look;
  Boxes boxes;
  QWidget container;
  Surface surface{&container};
  DiagramOperations operations{surface, *this};
  Selection selection{surface, *this};
  ReaderView view;
};

TEST_F(Diagram, PastTheLastNumberNoEndsTheReading) {
  QByteArray bytes = lanFile({});
  for (int i = 1; i <= 40000; ++i)
    bytes += "x HUB 1 2 1 -1 -1 -1\r\n";
  const Folder folder;
  open(folder.file(bytes));
  EXPECT_THAT(boxes.texts, ElementsAre("6 frmMain.AddSystem"));
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
  EXPECT_EQ(UBound(Systems), 32768);
  operations.RemoveSystem(5);
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
  operations.ClearLAN();
  open(sample("five-devices.txt"));
  EXPECT_EQ(surface.picSystem.UBound(), 4) << "the next file is read";
}

TEST_F(Diagram, PaintsGridThenLinesThenSprites) {
  operations.MoveSystem(0, -100, 0); // out of the way
  surface.setBackColor(0x100000);
  EXPECT_EQ(pixel(40, 47), 0x000010);
  int turns = 0;
  surface.DrawGrid([&] { ++turns; });
  EXPECT_EQ(turns, 1 + 2500 / 20);
  EXPECT_EQ(pixel(40, 47), 0x404040);
  EXPECT_EQ(pixel(47, 40), 0x404040);
  EXPECT_EQ(pixel(41, 47), 0x000010);
  EXPECT_EQ(pixel(2499, 47), 0x000010);
  add(2, 100, 100);
  add(0, 200, 100);
  operations.AddLink(1, 1, .5, 2, 1, .3125, 1); // to the far edge of the blank sprite
  EXPECT_EQ(pixel(150, 110), 0x5782E4);
  EXPECT_EQ(pixel(160, 110), 0x5782E4) << "over the grid";
  EXPECT_EQ(pixel(210, 110), 0x404040) << "the sprite hides the line";
  EXPECT_EQ(pixel(248, 110), 0x000010) << "up to its end";
  surface.lneLink(1).Visible = false;
  EXPECT_EQ(pixel(150, 110), 0x000010) << "hidden";
  for (const int distance : {0, -5, 2147483647}) {
    GridRes = distance;
    surface.Cls();
    surface.DrawGrid();
    EXPECT_EQ(pixel(0, 47), distance > 0 ? 0x404040 : 0x000010) << distance;
    EXPECT_EQ(pixel(60, 47), 0x000010) << distance;
  }
  surface.setBackColor(0);
  EXPECT_EQ(pixel(0, 47), 0) << "a new background wipes the grid";
}

/// How long the runs of a colour are down the first column.
std::set<int> runs(const QImage &image, QRgb colour) {
  std::set<int> lengths;
  for (int y = 0, length = 0; y < image.height(); ++y) {
    length = image.pixel(0, y) == colour ? length + 1 : 0;
    if (length > 0 && (y + 1 == image.height() || image.pixel(0, y + 1) != colour))
      lengths.insert(length);
  }
  return lengths;
}

TEST_F(Diagram, ThinThingsAreSharpAtEveryScale) {
  operations.MoveSystem(0, -100, 0);
  for (const int lX : {60, 160})
    add(2, lX, 20);
  operations.AddLink(1, .5, .31, 2, .5, .31, 1);
  for (const double scale : {1., 1.25, 1.5, 1.75, 2.})
    for (const int distance : {15, 20}) {
      GridRes = distance;
      surface.Cls();
      surface.DrawGrid();
      QImage image(QSize(300, 300) * scale, QImage::Format_RGB32);
      image.setDevicePixelRatio(scale);
      QPainter painter(&image);
      painter.translate(0, 29); // as below the toolbar
      surface.paint(painter, {0, 0, 300, 271});
      const auto at = [scale](int pixel) { return static_cast<int>(pixel * scale); };
      const QImage down = image.copy(at(127), at(31), 1, at(200));
      const QImage across =
          image.copy(at(4), at(29 + 67), at(200), 1).transformed({0, 1, 1, 0, 0, 0});
      EXPECT_EQ(runs(down, 0xFF5782E4), std::set{at(2)}) << scale;
      for (const QImage &grid : {down, across})
        EXPECT_EQ(runs(grid, 0xFF404040), std::set{at(1)}) << scale << ", " << distance;
    }
}

/// Each pixel by its distance from the sprite's edge, and a number's by those of its digits.
TEST_F(Diagram, FramesArePaintedAlongTheEdgeAndWithinTheirSprite) {
  constexpr QRgb colour = 0xFFFF00FF, edge = 0xFFFFFFFF;
  const QRect hub(100, 100, 48, 20), around = hub.adjusted(-9, -9, 50, 50);
  add(2, 100, 100);
  add(2, 130, 125); // painted after it
  const QImage bare = picture(around);
  QFont hard = surface.font();
  hard.setStyleStrategy(QFont::NoAntialias);
  surface.setFont(hard);
  SpriteLayer &layer = surface.picSystem(1).layer;
  for (const std::int32_t number : {-1, 0}) {
    layer = {.colour = 0xFF00FF, .width = 48, .height = 20, .frameWidth = 2, .number = number};
    const QImage seen = picture(hub);
    int digits = 0;
    for (int y = 0; y < 20; ++y)
      for (int x = 0; x < 48; ++x) {
        const int depth = std::min({x, y, 47 - x, 19 - y});
        EXPECT_TRUE(depth > 1 || seen.pixel(x, y) == colour) << x << ',' << y;
        if (depth < 3)
          continue;
        int neighbours = 0;
        for (int across = -1; across <= 1; ++across)
          for (int down = -1; down <= 1; ++down)
            neighbours += seen.pixel(x + across, y + down) == colour ? 1 : 0;
        const bool digit = seen.pixel(x, y) == colour;
        digits += digit ? 1 : 0;
        const QRgb behind = neighbours > 0 ? edge : bare.pixel(x + 9, y + 9);
        EXPECT_EQ(seen.pixel(x, y), digit ? colour : behind) << x << ',' << y;
      }
    EXPECT_EQ(digits > 9, number == 0);
  }
  layer.frameWidth = 1;
  layer.number = -1;
  layer.dotted = true;
  const QImage dotted = picture(hub);
  int dots[4] = {};
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 48; ++x)
      if (dotted.pixel(x, y) == colour) {
        EXPECT_EQ(std::min({x - 1, y - 1, 47 - x, 19 - y}), 0) << x << ',' << y;
        ++dots[x == 1 ? 0 : x == 47 ? 1 : y == 1 ? 2 : 3];
      }
  EXPECT_THAT(dots, ElementsAre(testing::Ge(6), testing::Ge(6), testing::Ge(15), testing::Ge(15)));
  // drawn on a larger picture, of which a hub is left
  layer = {.colour = white, .width = 72, .height = 51, .frameWidth = 2, .number = 32767};
  QImage after = picture(around);
  EXPECT_NE(after.copy({9, 9, 48, 20}), bare.copy({9, 9, 48, 20}));
  QPainter(&after).drawImage(9, 9, bare.copy({9, 9, 48, 20}));
  EXPECT_EQ(after, bare);
}

TEST_F(Diagram, TheBandInvertsWholePixelsAndLeavesNoTrace) {
  surface.DrawGrid();
  const QRect area(0, 0, 300, 300);
  const QImage before = picture(area);
  surface.lneXOR = {
      .X1 = 20, .Y1 = 30, .X2 = 250, .Y2 = 170, .BorderColor = LinkColor, .Visible = true};
  const QImage with = picture(area);
  int inverted = 0;
  for (int y = 0; y < 300; ++y)
    for (int x = 0; x < 300; ++x)
      if (before.pixel(x, y) != with.pixel(x, y)) {
        ++inverted;
        EXPECT_EQ(with.pixel(x, y) & RGB_MASK,
                  ~(before.pixel(x, y) ^ toQColor(LinkColor).rgb()) & RGB_MASK);
      }
  EXPECT_NEAR(inverted, 2 * 269, 80) << "two pixels wide";
  surface.lneXOR.Visible = false;
  EXPECT_EQ(picture(area), before);
}

/// However many lines there are, and while a link is drawn.
TEST_F(Diagram, NoChangeLeavesTracesOnTheScreen) {
  container.resize(700, 500);
  container.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&container));
  std::mt19937 random(3);
  const auto below = [&](std::size_t end) { return static_cast<std::int32_t>(random() % end); };
  const auto anyLink = [&] { return below(Links.size()); };
  using Device = std::int32_t;
  const std::array<std::function<void(Device)>, 9> changes{
      [&](Device device) { selection.SelectItem(device, SelectedColor, false); },
      [&](Device device) { operations.RemoveSystem(std::max(device, 1)); },
      [&](Device device) { operations.AddLink(0, .5, .5, device, .5, .5, 1); },
      [&](Device) { operations.RemoveLink(std::max(anyLink(), 1), false); },
      [&](Device device) { operations.MoveSystem(device, below(700), at(Systems, device).lY); },
      [&](Device) { surface.move(-below(1700), -below(1700)); },
      [&](Device) { container.resize(500 + below(300), 500); },
      [&](Device device) {
        ShowGrid = device % 2 == 0;
        surface.redrawGrid();
      },
      [&](Device) {
        surface.touchBand();
        surface.lneXOR.Visible = below(3) > 0;
        surface.lneXOR.X1 = static_cast<float>(below(900));
        surface.lneXOR.Y2 = static_cast<float>(below(900));
        surface.touchBand();
      }};
  for (const auto &[devices, shape] : {std::pair(40, Shape::Normal),
                                       {3000, Shape::Normal},
                                       {300, Shape::Any},
                                       {3000, Shape::Any}}) {
    makeLan(operations, devices, devices, shape);
    for (int step = 0; step < 60 && !HasFailure(); ++step) {
      const std::size_t change = random() % changes.size();
      SCOPED_TRACE(testing::Message() << devices << ", step " << step << ", change " << change);
      changes.at(change)(below(Systems.size()));
      expectNoTraces();
    }
  }
}

/// Beside points along the line, taken one by one.
TEST(Line, IsCutToWhatIsSeen) {
  std::mt19937 random(1);
  const auto any = [&] { return static_cast<float>(random() % 1500) - 500; };
  const QRect area(100, 50, 300, 400);
  for (int i = 0; i < 300; ++i) {
    const Line line{.X1 = any(), .Y1 = any(), .X2 = i % 9 == 0 ? 200 : any(), .Y2 = any()};
    const QLineF whole(line.X1, line.Y1, line.X2, line.Y2);
    const QRegion cover = line.cover(area);
    constexpr int count = 3000;
    int inside = 0;
    for (int k = 0; k <= count; ++k) {
      const QPointF at = whole.pointAt(double(k) / count);
      if (!QRectF(area).adjusted(0, 0, -1, -1).contains(at))
        continue;
      ++inside;
      ASSERT_TRUE(cover.contains(at.toPoint())) << i;
    }
    const double length = whole.length() * inside / count;
    EXPECT_NEAR(line.lengthWithin(area), length, 2) << i;
    EXPECT_TRUE(cover.isEmpty() || line.within(area).contains(cover.boundingRect())) << i;
    double size = 0;
    for (const QRect &part : cover)
      size += part.width() * part.height();
    EXPECT_LE(size, 70 * (length + 9)) << i;
  }
}

} // namespace
} // namespace vnb::test
