// SPDX-License-Identifier: MIT
#include "appearance/images.h"
#include "diagram/operations.h"
#include "diagram/selection.h"
#include "diagram/viewport.h"
#include "forms/pictures.h"
#include "support.h"

#include <gmock/gmock.h>

#include <QPainter>
#include <QScreen>
#include <QTest>

#include <memory>
#include <random>
#include <sstream>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace vnb::test {
namespace {

constexpr int white = 0xFFFFFF;

class Diagram : public testing::Test {
protected:
  Diagram() : surface(nullptr), operations(surface) {
    LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
    surface.picSystem(0).setPicture(DeviceImages(SystemType::Router));
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

  /// "48x32@0,0 Router;..." of all sprites.
  std::string sprites() const {
    std::ostringstream out;
    for (const Sprite &s : surface.picSystem)
      out << (s.Visible ? "" : "hidden ") << s.Width << 'x' << s.Height << '@' << s.Left << ','
          << s.Top << ' ' << s.ToolTipText().toStdString() << ';';
    return out.str();
  }
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

  /// Every sprite and line says what its record says.
  void expectViewOfDocument() const {
    ASSERT_EQ(surface.picSystem.UBound(), UBound(Systems));
    ASSERT_EQ(surface.lneLink.UBound(), UBound(Links));
    EXPECT_FALSE(surface.lneLink(0).Visible);
    for (std::int32_t i = 0; i <= UBound(Systems); ++i) {
      const SystemRec &record = Systems[static_cast<std::size_t>(i)];
      const Sprite &sprite = surface.picSystem(i);
      EXPECT_EQ(sprite.Left, record.lX) << i;
      EXPECT_EQ(sprite.Top, record.lY) << i;
      EXPECT_EQ(sprite.lType, record.lType) << i;
      EXPECT_EQ(sprite.Picture.cacheKey(), DeviceImages(record.lType).cacheKey()) << i;
      EXPECT_TRUE(sprite.Visible) << i;
    }
    for (std::int32_t i = 1; i <= UBound(Links); ++i) {
      const LinkRec &record = Links[static_cast<std::size_t>(i)];
      const Line &line = surface.lneLink(i);
      const Sprite &from = surface.picSystem(record.lFrom);
      const Sprite &to = surface.picSystem(record.lTo);
      EXPECT_TRUE(line.Visible) << i;
      EXPECT_EQ(line.X1, static_cast<float>(from.Left + from.Width * record.dFromX)) << i;
      EXPECT_EQ(line.Y1, static_cast<float>(from.Top + from.Height * record.dFromY)) << i;
      EXPECT_EQ(line.X2, static_cast<float>(to.Left + to.Width * record.dToX)) << i;
      EXPECT_EQ(line.Y2, static_cast<float>(to.Top + to.Height * record.dToY)) << i;
    }
  }

  Boxes boxes;
  Surface surface;
  DiagramOperations operations;
};

TEST_F(Diagram, BuiltInPicturesHaveTheirExactSizes) {
  struct Case {
    const char *names;
    QSize size;
  };
  for (const auto &[names, size] : std::vector<Case>{
           {"ROUTER", {48, 32}},
           {"HUB", {48, 20}},
           {"TERMINAL", {38, 37}},
           {"MAIN", {72, 51}},
           {"MAIL", {48, 51}},
           {"AUTH", {48, 51}},
           {"LOCK IB MODEM TRANS RECEIVE", {32, 32}},
           {"UNKNOWN", {72, 51}},
           {"LOGO", {354, 240}},
           {"ICON", {256, 256}},
           {"NEW LOAD SAVE ADD INFO LINK DEVICE SUBNET SETTINGS THEMES ABOUT", {24, 24}},
           {"ADDSUB DELSUB", {13, 13}}})
    for (const QString &name : QString::fromLatin1(names).split(u' ')) {
      EXPECT_EQ(LoadResPicture(name).size(), size) << name.toStdString();
      const QImage twice(QStringLiteral(":/pictures/%1@2x.png").arg(name));
      EXPECT_EQ(twice.size(), size * 2) << name.toStdString();
      if (size.width() > 24)
        continue;
      const QImage off = LoadResPicture(name).toImage();
      const QImage over = LoadResPicture(name + QStringLiteral("_H")).toImage();
      const QImage down = LoadResPicture(name + QStringLiteral("_C")).toImage();
      EXPECT_TRUE(off != over && over != down && off != down) << name.toStdString();
      EXPECT_EQ(over.size(), size);
      EXPECT_EQ(down.size(), size);
    }
  EXPECT_THROW(LoadResPicture(QStringLiteral("NOSUCH")), RuntimeError);
}

TEST_F(Diagram, SpritesFollowTheirRecords) {
  add(2, 100, 50);
  add(0, -20, 3000);
  EXPECT_EQ(sprites(), "48x32@0,0 Router;48x20@100,50 Hub;48x32@-20,3000 Unknown device;");
  link(0, 1);
  operations.AddLink(1, 0, 1, 2, .25, -1, 1);
  EXPECT_EQ(lines(), "24,16-124,60;100,70--8,2968;");
  Systems[1].lX = 200;
  surface.picSystem(1).Left = 200;
  operations.RefreshLinks(1);
  EXPECT_EQ(lines(), "24,16-224,60;200,70--8,2968;");
  operations.RefreshLinks(2); // nothing of its own has moved
  expectViewOfDocument();
  EXPECT_THAT(boxes.texts, IsEmpty());
  operations.ClearLAN();
  EXPECT_EQ(sprites(), "48x32@0,0 Router;");
  EXPECT_EQ(lines(), "");
}

TEST_F(Diagram, RefreshLinksTouchesOnlyTheEndAtTheDevice) {
  add(2, 100, 50);
  link(1, 1);
  link(0, 1);
  surface.picSystem(1).Left = 300;
  surface.picSystem(0).Left = 500;
  operations.RefreshLinks(1);
  EXPECT_EQ(lines(), "324,60-124,60;24,16-324,60;");
}

TEST_F(Diagram, AFailedLinkReportsOncePerCoordinateAndStands) {
  link(0, 0);
  {
    Boxes yesses(yes(9));
    link(0, 7);
    EXPECT_THAT(yesses.texts, ElementsAre("340 frmMain.AddLink", "340 frmMain.AddLink"));
    operations.AddLink(0, 1e300, 0, 0, 0, 0, 1);
    EXPECT_THAT(yesses.texts, SizeIs(3));
    EXPECT_EQ(yesses.texts[2], "6 frmMain.AddLink");
  }
  link(7, 0);
  EXPECT_THAT(boxes.texts, IsEmpty()); // another set of boxes was in place
  EXPECT_EQ(lines(), "24,16-24,16;24,16-0,0;0,0-0,0;hidden 0,0-0,0;");
  EXPECT_EQ(dumpLinks(), "0@0.5,0.5-0@0.5,0.5/1;0@0.5,0.5-7@0.5,0.5/1;0@1e+300,0-0@0,0/1;"
                         "7@0.5,0.5-0@0.5,0.5/1");
}

TEST_F(Diagram, ACodeAboveTheTableIsReportedAndShownBlank) {
  Boxes yesses(yes(9));
  add(17, 5, 6);
  EXPECT_THAT(yesses.texts, ElementsAre("9 frmMain.AddSystem"));
  EXPECT_EQ(surface.picSystem(1).Left, 5);
  EXPECT_TRUE(surface.picSystem(1).Visible);
}

TEST_F(Diagram, LocksRefillTheBoxesUnlessAFileIsRead) {
  int refills = 0;
  operations.PopulateLockBoxes = [&] { ++refills; };
  add(2, 0, 0);
  EXPECT_EQ(refills, 0);
  add(9, 0, 0);
  EXPECT_EQ(refills, 1);
  DiagramReaderView view(operations);
  OpenLANFile(sample("company.txt"), operations, view);
  EXPECT_EQ(refills, 1);
}

TEST_F(Diagram, EverySampleIsDrawnAsItsDocument) {
  DiagramReaderView view(operations);
  for (const char *name : {"five-devices.txt", "hand-written.txt", "company.txt"}) {
    OpenLANFile(sample(name), operations, view);
    expectViewOfDocument();
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Diagram, RandomRemovalsKeepViewAndDocumentTogether) {
  std::mt19937 random(3);
  const auto below = [&random](std::int32_t bound) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(bound));
  };
  for (int i = 0; i < 40; ++i)
    add(below(17), below(3000) - 200, below(3000) - 200);
  for (int i = 0; i < 90; ++i)
    operations.AddLink(below(41), below(9) / 8.0, below(9) / 8.0, below(41), below(9) / 8.0, 0, 1);
  while (UBound(Systems) > 0) {
    if (UBound(Links) > 0 && below(3) > 0)
      operations.RemoveLink(1 + below(UBound(Links)), false);
    else
      operations.RemoveSystem(1 + below(UBound(Systems)));
    expectViewOfDocument();
  }
  EXPECT_THAT(boxes.texts, IsEmpty());
}

TEST_F(Diagram, PastTheLastNumberNoEndsTheReading) {
  QByteArray bytes = lanFile({});
  for (int i = 1; i <= 40000; ++i)
    bytes += "x HUB 1 2 1 -1 -1 -1\r\n";
  const Folder folder;
  DiagramReaderView view(operations);
  Boxes no;
  OpenLANFile(folder.file(bytes), operations, view);
  EXPECT_THAT(no.texts, ElementsAre("6 frmMain.AddSystem"));
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
  EXPECT_EQ(UBound(Systems), 32768);
  operations.RemoveSystem(5);
  EXPECT_EQ(surface.picSystem.UBound(), 32767);
  expectViewOfDocument();
}

TEST_F(Diagram, TheTopmostSpriteIsHit) {
  surface.picSystem(0).Left = 10;
  add(2, 20, 10);
  add(9, std::numeric_limits<std::int32_t>::max(), 10);
  for (const auto &[point, due] : std::vector<std::pair<QPoint, int>>{{{9, 0}, -1},
                                                                      {{10, 0}, 0},
                                                                      {{19, 15}, 0},
                                                                      {{20, 15}, 1},
                                                                      {{67, 29}, 1},
                                                                      {{68, 29}, -1},
                                                                      {{57, 31}, 0},
                                                                      {{57, 32}, -1}})
    EXPECT_EQ(surface.spriteAt(point), due) << point.x() << ',' << point.y();
}

TEST_F(Diagram, PaintsGridThenLinesThenSprites) {
  surface.picSystem(0).Visible = false;
  surface.setBackColor(0x100000);
  EXPECT_EQ(pixel(40, 47), 0x000010);
  surface.DrawGrid();
  EXPECT_EQ(pixel(40, 47), 0x404040);
  EXPECT_EQ(pixel(47, 40), 0x404040);
  EXPECT_EQ(pixel(41, 47), 0x000010);
  EXPECT_EQ(pixel(2499, 47), 0x000010);
  add(2, 100, 100);
  add(0, 200, 100);
  operations.AddLink(1, 1, .5, 2, 1, .5, 1); // to the far side of the blank sprite
  EXPECT_EQ(pixel(150, 110), 0x5782E4);
  EXPECT_EQ(pixel(210, 112), 0x404040); // the sprite hides the line
  surface.lneXOR = {
      .X1 = 60, .Y1 = 60, .X2 = 60, .Y2 = 90, .BorderColor = LinkColor, .Visible = true};
  EXPECT_EQ(pixel(60, 75), ~(0x404040 ^ 0x5782E4) & white);
  surface.setBackColor(0);
  EXPECT_EQ(pixel(40, 47), 0); // a new background wipes the grid
  for (const std::int32_t distance : {0, -5}) {
    GridRes = distance;
    surface.DrawGrid();
    EXPECT_EQ(pixel(40, 47), 0);
  }
  GridRes = 3000;
  surface.DrawGrid();
  EXPECT_EQ(pixel(0, 47), 0x404040);
  EXPECT_EQ(pixel(20, 47), 0);
}

/// The largest difference of any colour channel.
int difference(const QImage &a, const QImage &b) {
  int largest = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QColor p = a.pixelColor(x, y);
      const QColor q = b.pixelColor(x, y);
      largest = std::max({largest, std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                          std::abs(p.blue() - q.blue())});
    }
  return largest;
}

/// What a strip shows must not depend on how the surface is cut into strips. The painter's smooth
/// lines do by a shade that nobody sees.
TEST_F(Diagram, PartsArePaintedAsTheWhole) {
  DiagramReaderView view(operations);
  OpenLANFile(sample("company.txt"), operations, view);
  add(2, 2000000000, -2000000000);
  link(0, UBound(Systems));
  surface.DrawGrid();
  const QRect area(100, 50, 700, 500);
  const QImage whole = picture(area);
  for (const QRect &part :
       {QRect(100, 50, 700, 7), QRect(333, 60, 5, 480), QRect(450, 300, 90, 90)})
    EXPECT_LE(difference(picture(part), whole.copy(part.translated(-area.topLeft()))), 8);
}

TEST_F(Diagram, PartsOfAThicketArePaintedAsTheWhole) {
  add(2, 600, 400);
  for (int i = 0; i < 1600; ++i)
    operations.AddLink(0, .5, .5, 1, i / 160., .5, 1);
  const QRect area(100, 50, 600, 400);
  const QImage whole = picture(area);
  const QRect part(100, 50, 40, 300); // few lines come here
  EXPECT_LE(difference(picture(part), whole.copy(part.translated(-area.topLeft()))), 8);
}

TEST_F(Diagram, NothingOfALayerLiesOutsideItsSprite) {
  LoadDeviceImages(QString(SystemType::Last - 1, u'|'));
  add(9, 200, 200);
  Sprite &sprite = surface.picSystem(1);
  const QRect around(180, 180, 80, 80);
  const QImage before = picture(around);
  sprite.layer = {.colour = white, .width = 72, .height = 51, .frameWidth = 2, .number = 32767};
  const QImage after = picture(around);
  const QRect inside(20, 20, sprite.Width, sprite.Height);
  int changed = 0;
  for (int y = 0; y < 80; ++y)
    for (int x = 0; x < 80; ++x)
      if (before.pixel(x, y) != after.pixel(x, y)) {
        ++changed;
        EXPECT_TRUE(inside.contains(x, y)) << x << ',' << y;
      }
  EXPECT_GT(changed, 100);
}

TEST_F(Diagram, TheBandInvertsWholePixelsAndLeavesNoTrace) {
  surface.DrawGrid();
  const QRect area(0, 0, 300, 300);
  const QImage before = picture(area);
  surface.lneXOR = {
      .X1 = 20, .Y1 = 30, .X2 = 250, .Y2 = 170, .BorderColor = 0xE48257, .Visible = true};
  const QImage with = picture(area);
  int inverted = 0;
  for (int y = 0; y < 300; ++y)
    for (int x = 0; x < 300; ++x) {
      if (before.pixel(x, y) == with.pixel(x, y))
        continue;
      ++inverted;
      EXPECT_EQ(with.pixel(x, y) & RGB_MASK,
                ~(before.pixel(x, y) ^ toQColor(0xE48257).rgb()) & RGB_MASK);
    }
  EXPECT_NEAR(inverted, 2 * 269, 80) << "two pixels wide";
  surface.lneXOR.Visible = false;
  EXPECT_EQ(picture(area), before);
}

/// The windows shows what a fresh painting would, after any change: nothing stays behind.
TEST_F(Diagram, NoChangeLeavesTracesOnTheScreen) {
  struct NoPanels : SelectionPanels {
    void fillDevice() override {}
    void fillLinks() override {}
    void fillSubnets() override {}
    void showNoDevice() override {}
  } panels;
  Selection selection(surface, panels);
  OpenLANFile(sample("company.txt"), operations, *std::make_unique<DiagramReaderView>(operations));
  surface.DrawGrid();
  surface.resize(700, 500);
  surface.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&surface));
  const auto shown = [this] { return surface.screen()->grabWindow(surface.winId()).toImage(); };
  const auto due = [this] { return picture(QRect(0, 0, 700, 500)); };
  std::mt19937 random(3);
  for (int step = 0; step < 60; ++step) {
    const auto device = static_cast<std::int32_t>(random() % Systems.size());
    switch (random() % 6) {
    case 0:
      selection.SelectItem(device, SelectedColor, false);
      break;
    case 1:
      selection.SelectItem(device, LockColor, true);
      break;
    case 2:
      selection.Deselect();
      break;
    case 3:
      if (device > 0)
        operations.RemoveSystem(device);
      break;
    case 4:
      link(0, device);
      break;
    default: {
      Sprite &sprite = surface.picSystem(device);
      surface.touch(sprite);
      sprite.Left = Systems[static_cast<std::size_t>(device)].lX = static_cast<int>(random() % 700);
      surface.touch(sprite);
      operations.RefreshLinks(device);
    }
    }
    QCoreApplication::processEvents();
    ASSERT_LE(difference(shown(), due()), 8) << "step " << step;
  }
}

TEST_F(Diagram, ALinkToNoDeviceInAFileIsReportedForItself) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    const Boxes told({answer, answer});
    DiagramReaderView view(operations);
    const Folder folder;
    OpenLANFile(folder.file(lanFile({"1 HUB 100 100 1 -1 -1 -1", "."},
                                    {"L 1 .5 .5 7 .5 .5 1", "L 0 .5 .5 1 .5 .5 1", "."})),
                operations, view);
    const std::vector<std::string> both(2, "340 frmMain.AddLink");
    EXPECT_EQ(told.texts, answer == Answer::Yes ? both : std::vector<std::string>(1, both[0]));
    EXPECT_EQ(UBound(Links), 2) << "a No leaves AddLink, not the reading";
    EXPECT_EQ(lines(), answer == Answer::Yes ? "124,110-0,0;24,16-124,110;"
                                             : "hidden 124,0-0,0;24,16-124,110;");
  }
}

TEST(Grid, YieldsOnceForEachStep) {
  Surface surface(nullptr);
  for (const auto &[distance, due] :
       std::vector<std::pair<int, int>>{{20, 126}, {999, 3}, {0, 0}, {2147483647, 1}}) {
    GridRes = distance;
    int yields = 0;
    surface.DrawGrid([&] { ++yields; });
    EXPECT_EQ(yields, due);
    QImage part(10, 10, QImage::Format_RGB32);
    QPainter painter(&part);
    surface.paint(painter, {5, 5, 10, 10}); // no distance is too large to be added to
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
