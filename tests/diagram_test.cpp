// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "diagram/diagramoperations.h"
#include "diagram/selection.h"
#include "diagram/viewport.h"
#include "support.h"
#include "tools/samplelan.h"
#include "widgets/pictures.h"

#include <QPainter>
#include <QScreen>
#include <QTest>

#include <algorithm>
#include <random>
#include <set>
#include <sstream>

namespace vnb::test {
namespace {

constexpr int white = 0xFFFFFF;

/// The largest difference of any colour channel.
int difference(const QImage &a, const QImage &b) {
  if (a == b)
    return 0;
  int largest = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      largest = std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                          std::abs(qBlue(p) - qBlue(q))});
    }
  return largest;
}

class Diagram : public testing::Test, protected EditorView {
protected:
  Diagram() : surface(&container), operations(surface, *this) {
    LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
    LinkColor = 0xE48257;
    GridColor = 0x404040;
    GridRes = 20;
    operations.ClearLAN();
  }

  void add(std::int32_t lType, std::int32_t lX, std::int32_t lY) {
    operations.AddSystem(lType, lX, lY, 1, -1, -1, -1, {});
  }
  void link(std::int32_t lFrom, std::int32_t lTo) {
    operations.AddLink(lFrom, .5, .5, lTo, .5, .5, 1);
  }
  void open(const QString &path) { OpenLANFile(path, operations, view); }

  /// "24,16-100,50;..." of all lines but the template.
  std::string lines() const {
    std::ostringstream out;
    for (std::int32_t i = 1; i <= surface.lneLink.UBound(); ++i) {
      const Line &l = surface.lneLink(i);
      out << (l.Visible ? "" : "hidden ") << l.X1 << ',' << l.Y1 << '-' << l.X2 << ',' << l.Y2
          << ';';
    }
    return out.str();
  }

  /// What the surface shows in `area`.
  QImage picture(const QRect &area, qreal scale = 1) const {
    QImage image(area.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    QPainter painter(&image);
    painter.translate(-area.topLeft());
    surface.paint(painter, area);
    return image;
  }
  int pixel(int x, int y) const {
    return static_cast<int>(picture({x, y, 1, 1}).pixel(0, 0) & white);
  }
  Boxes boxes;
  QWidget container;
  Surface surface;
  DiagramOperations operations;
  void PopulateLockBoxes() override { ++refills; }

  ReaderView view;
  int refills = 0;
};

TEST_F(Diagram, EachDeviceShowsThePictureOfItsType) {
  operations.MoveSystem(0, -100, 0);
  add(2, 100, 100);
  std::string sizes;
  for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
    const QImage due = DeviceImages(lType).toImage().convertToFormat(QImage::Format_RGB32);
    operations.ReplaceSystem(1, lType);
    EXPECT_EQ(picture({QPoint(100, 100), surface.spriteRect(1).size()}), due) << lType;
    sizes += std::to_string(due.width()) + "x" + std::to_string(due.height()) + " ";
    const QString sharp = QStringLiteral(":/pictures/%1@2x.png").arg(ResIDFromType(lType));
    EXPECT_EQ(QImage(sharp).size(), due.size() * 2) << lType;
  }
  EXPECT_EQ(sizes, "48x32 48x20 72x51 38x37 72x51 48x51 72x51 48x51 32x32 32x32 32x32 72x51 32x32 "
                   "32x32 72x51 72x51 ");
  EXPECT_THROW(LoadResPicture(QStringLiteral("NOSUCH")), RuntimeError);
}

TEST_F(Diagram, SpritesAndLinesCloseUpAndFollow) {
  for (const std::int32_t lType : {2, 4, 9})
    add(lType, 100 * lType, 100);
  for (const auto &[from, to] : {std::pair(0, 1), {1, 2}, {2, 3}, {3, 0}})
    link(from, to);
  EXPECT_EQ(lines(), "24,16-224,110;224,110-419,118.5;419,118.5-916,116;916,116-24,16;");
  operations.RemoveSystem(1);
  EXPECT_EQ(lines(), "419,118.5-916,116;916,116-24,16;");
  EXPECT_EQ(surface.picSystem.UBound(), 2);
  EXPECT_EQ(surface.spriteAt({201, 101}), -1);
  EXPECT_EQ(surface.spriteAt({401, 101}), 1);
  operations.MoveSystem(2, 50, 60);
  EXPECT_EQ(lines(), "419,118.5-66,76;66,76-24,16;");
  operations.ReplaceSystem(2, 3);
  EXPECT_EQ(lines(), "419,118.5-66,76;66,76-24,16;") << "until it is moved";
  operations.MoveSystem(2, 50, 60);
  EXPECT_EQ(lines(), "419,118.5-86,85.5;86,85.5-24,16;");
  operations.RemoveLink(1, false);
  EXPECT_EQ(lines(), "86,85.5-24,16;");
  operations.ClearLAN();
  EXPECT_EQ(lines(), "");
  EXPECT_EQ(surface.picSystem.UBound(), 0);
  EXPECT_EQ(surface.spriteAt({401, 101}), -1);
}

TEST_F(Diagram, WhatCannotBeShownIsReportedAndStands) {
  const Boxes yesses(yes(9));
  operations.AddLink(0, 1e300, 0, 0, 0, 0, 1);
  add(17, 5, 6); // a code above the table
  EXPECT_THAT(yesses.texts, ElementsAre("6 frmMain.AddLink", "9 frmMain.AddSystem"));
  EXPECT_EQ(dumpLinks(), "0@1e+300,0-0@0,0/1");
  EXPECT_EQ(lines(), "0,0-0,0;");
  EXPECT_EQ(surface.spriteAt({5, 6}), 1);
}

TEST_F(Diagram, ALinkToNoDeviceInAFileIsReportedForItself) {
  const Folder folder;
  const QString path = folder.file(lanFile({"1 HUB 100 100 1 -1 -1 -1", "."},
                                           {"L 1 .5 .5 7 .5 .5 1", "L 0 .5 .5 1 .5 .5 1", "."}));
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    const Boxes told({answer, answer});
    open(path);
    EXPECT_EQ(told.texts,
              std::vector<std::string>(answer == Answer::Yes ? 2 : 1, "340 frmMain.AddLink"));
    EXPECT_EQ(UBound(Links), 2) << "a No leaves AddLink, not the reading";
    EXPECT_EQ(lines(), answer == Answer::Yes ? "124,110-0,0;24,16-124,110;"
                                             : "hidden 124,0-0,0;24,16-124,110;");
  }
}

TEST_F(Diagram, PastTheLastNumberNoEndsTheReading) {
  QByteArray bytes = lanFile({});
  for (int i = 1; i <= 40000; ++i)
    bytes += "x HUB 1 2 1 -1 -1 -1\r\n";
  const Folder folder;
  const Boxes no;
  open(folder.file(bytes));
  EXPECT_THAT(no.texts, ElementsAre("6 frmMain.AddSystem"));
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
  EXPECT_EQ(UBound(Systems), 32768);
  operations.RemoveSystem(5);
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
}

TEST_F(Diagram, LocksRefillTheBoxesUnlessAFileIsRead) {
  add(2, 0, 0);
  EXPECT_EQ(refills, 0);
  add(9, 0, 0);
  open(sample("company.txt"));
  EXPECT_EQ(refills, 1);
}

TEST_F(Diagram, TheTopmostSpriteIsHit) {
  operations.MoveSystem(0, 10, 0);
  add(2, 20, 10);
  add(9, std::numeric_limits<std::int32_t>::max(), 10);
  constexpr int cases[][3] = {{9, 0, -1},  {10, 0, 0},   {19, 15, 0}, {20, 15, 1},
                              {67, 29, 1}, {68, 29, -1}, {57, 31, 0}, {57, 32, -1}};
  for (const auto &[x, y, due] : cases)
    EXPECT_EQ(surface.spriteAt({x, y}), due) << x << ',' << y;
}

TEST_F(Diagram, PaintsGridThenLinesThenSprites) {
  operations.MoveSystem(0, -100, 0); // out of the way
  surface.setBackColor(0x100000);
  EXPECT_EQ(pixel(40, 47), 0x000010);
  surface.DrawGrid();
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

TEST_F(Diagram, FramesArePaintedAlongTheEdgeAndWithinTheirSprite) {
  constexpr QRgb colour = 0xFFFF00FF;
  const QRect hub(100, 100, 48, 20), around = hub.adjusted(-9, -9, 50, 50);
  add(2, 100, 100);
  const QImage bare = picture(around);
  SpriteLayer &layer = surface.picSystem(1).layer;
  layer = {.colour = 0xFF00FF, .width = 48, .height = 20, .frameWidth = 2};
  const QImage solid = picture(hub);
  for (int y = 0; y < 20; ++y)
    for (int x = 0; x < 48; ++x)
      EXPECT_EQ(solid.pixel(x, y) == colour, std::min({x, y, 47 - x, 19 - y}) < 2) << x << ',' << y;
  layer.frameWidth = 1;
  layer.dotted = true;
  const QImage dotted = picture(hub);
  int dots = 0;
  for (int x = 1; x < 47; ++x) {
    dots += dotted.pixel(x, 1) == colour ? 1 : 0;
    EXPECT_NE(dotted.pixel(x, 0), colour);
  }
  EXPECT_NEAR(dots, 23, 9);
  EXPECT_NE(dotted.pixel(24, 2), colour);
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

/// The window shows what a fresh painting would, after any change: nothing stays behind, however
/// many lines there are, and while a link is drawn.
TEST_F(Diagram, NoChangeLeavesTracesOnTheScreen) {
  Selection selection(surface, *this);
  container.resize(700, 500);
  container.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&container));
  std::mt19937 random(3);
  const auto below = [&](std::size_t end) { return static_cast<std::int32_t>(random() % end); };
  using Device = std::int32_t;
  const std::array<std::function<void(Device)>, 13> changes{
      [&](Device device) { selection.SelectItem(device, SelectedColor, false); },
      [&](Device device) { selection.SelectItem(device, LockColor, true); },
      [&](Device) { selection.Deselect(); },
      [&](Device device) {
        if (device > 0)
          operations.RemoveSystem(device);
      },
      [&](Device device) { link(0, device); },
      [&](Device) {
        if (UBound(Links) > 0)
          operations.RemoveLink(1 + below(Links.size() - 1), false);
      },
      [&](Device) {
        if (UBound(Links) > 0)
          selection.pickLink(1 + below(Links.size() - 1));
      },
      [&](Device device) { operations.MoveSystem(device, below(700), at(Systems, device).lY); },
      [&](Device device) { operations.ReplaceSystem(device, 1 + below(16)); },
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
    for (int step = 0; step < 60; ++step) {
      const std::size_t change = random() % changes.size();
      changes.at(change)(below(Systems.size()));
      QCoreApplication::processEvents();
      const QImage shown = surface.screen()->grabWindow(container.winId()).toImage();
      const QRect seen = container.rect().translated(-surface.pos());
      ASSERT_LE(difference(shown, picture(seen, shown.devicePixelRatio())), 8)
          << devices << " devices, step " << step << ", change " << change;
    }
  }
}

TEST(Viewport, LaysOutAndScrolls) {
  QWidget form;
  Viewport viewport(form);
  const Surface &surface = viewport.picLayout();
  viewport.layOut({538, 467}, 29);
  EXPECT_EQ(surface.parentWidget()->geometry(), QRect(0, 29, 522, 422));
  EXPECT_EQ(viewport.vsbScroll().geometry(), QRect(522, 29, 16, 422));
  EXPECT_EQ(viewport.hsbScroll().geometry(), QRect(0, 451, 522, 16));
  EXPECT_EQ(viewport.hsbScroll().maximum(), 2500 - 522);
  EXPECT_EQ(viewport.vsbScroll().maximum(), 2500 - 422);
  viewport.hsbScroll().setValue(1978);
  viewport.vsbScroll().setValue(10);
  EXPECT_EQ(surface.pos(), QPoint(-1978, -10));
  viewport.layOut({1016, 467}, 29); // the maximum falls below the value
  EXPECT_EQ(surface.pos(), QPoint(-1500, -10));
  viewport.layOut({10, 467}, 29); // no room: left alone
  EXPECT_EQ(surface.parentWidget()->geometry(), QRect(0, 29, 1000, 422));
  viewport.layOut({4000, 3000}, 29);
  EXPECT_EQ(surface.pos(), QPoint(0, 0));
  EXPECT_EQ(viewport.hsbScroll().maximum(), 0);
}

} // namespace
} // namespace vnb::test
