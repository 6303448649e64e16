// SPDX-License-Identifier: MIT
// What a user sees of the states of each kind of control: contrasts, computed from pixels.
#include "appearance/colours.h"
#include "appearance/images.h"
#include "appearance/theme.h"
#include "formtest.h"
#include "listing.h"
#include "shell/pagebutton.h"
#include "shell/swatch.h"
#include "widgets/controls.h"
#include "widgets/dropdown.h"
#include "widgets/pushoption.h"
#include "widgets/style.h"
#include "widgets/textbox.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include <cstdio>

namespace vnb::test {
namespace {

/// The contrast that a dozen pixels at least have between two pictures of one control.
double change(const QImage &before, const QImage &after) {
  std::vector<double> contrasts;
  for (int y = 0; y < before.height(); ++y)
    for (int x = 0; x < before.width(); ++x)
      contrasts.push_back(contrast(before.pixel(x, y), after.pixel(x, y)));
  std::ranges::nth_element(contrasts, contrasts.begin() + 11, std::greater());
  return contrasts[11];
}

QImage shot(QWidget &control) {
  return control.grab().toImage();
}

/// One control of each kind in a theme: a shipped one, or one of a background and a text alone.
class States : public testing::TestWithParam<const char *>, protected EditorView {
protected:
  States() {
    const QString name = QString::fromLatin1(GetParam());
    if (name.startsWith(u'#')) {
      BackgroundColor = ParseColor(name.left(7));
      TextColor = ParseColor(name.right(7));
    } else {
      LoadTheme(QStringLiteral(VNB_THEMES "/%1/theme.xml").arg(name), *this);
    }
    list->setRows({{QStringLiteral("first"), 1}, {QStringLiteral("second"), 2}});
    drop->addItem(QStringLiteral("Text, text"));
    box->setContent(QStringLiteral("Text, text"));
    bar->setRange(0, 1000);
    swatch->setBackColor(0x808080);
    showImages(*picture);
    form.setFocusPolicy(Qt::StrongFocus);
    form.setFixedSize(140, 620);
    for (int top = 10;
         QWidget * control : form.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
      control->setFocusPolicy(Qt::StrongFocus);
      control->setGeometry(10, top, 120, control == list || control == page ? 80 : 24);
      top += control->height() + 6;
    }
    bar->resize(16, 150);
    picture->resize(picture->sizeHint());
    applyColours(form);
    form.show();
    rest();
  }

  void loadButtonImages(const QString &tag, const QString &files) override {
    LoadButtonImages(ButtonImages(tag), tag, files);
  }

  static void point(QWidget &on, QPoint at) {
    QTest::mouseMove(on.window()->windowHandle(), on.mapTo(on.window(), at));
    QApplication::processEvents();
  }
  void rest() {
    drop->hidePopup();
    form.setEnabled(true);
    form.activateWindow(); // which its opened list was
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    form.setFocus();
    point(form, {1, 1});
  }

  /// Tells a contrast, and wants it to be at least so large.
  static void expect(const QWidget &control, const char *state, double least, double found) {
    std::printf("  %s %.1f", state, found);
    EXPECT_GE(found, least) << control.objectName().toStdString() << ", " << state;
  }
  void expectHeld(QWidget &control, QPoint at, double hovers = 1.5) {
    rest();
    const QImage resting = shot(control);
    point(control, at);
    const QImage hovered = shot(control);
    QTest::mousePress(&control, Qt::LeftButton, {}, at);
    const QImage held = shot(control);
    QTest::mouseRelease(&control, Qt::LeftButton, {}, at);
    expect(control, "hovered", hovers, change(resting, hovered));
    expect(control, "pressed", 3, change(hovered, held));
    rest();
  }
  /// As legible as the theme's own colours are, where these are less than is due.
  static void expectText(QAbstractButton &control, const char *state) {
    const QImage shown = shot(control);
    const QString text = control.text();
    control.setText({});
    expect(control, state, std::min(3., contrast(toQColor(TextColor), toQColor(BackgroundColor))),
           change(shot(control), shown));
    control.setText(text);
  }
  static QImage ground(const QImage &part) {
    QImage result = part;
    result.fill(toQColor(BackgroundColor));
    return result;
  }

  FormWindow form{"form", "Form", {100, 100}};
  QPushButton *button = addCaptioned<QPushButton>(form, "button", "Text", {});
  QCheckBox *check = addCaptioned<QCheckBox>(form, "check", "Text", {});
  QRadioButton *radio = addCaptioned<QRadioButton>(form, "radio", "Text", {});
  PushOption *option = addCaptioned<PushOption>(form, "option", "1", {});
  PictureButton *picture = add<PictureButton>(form, "picture", QStringLiteral("NEW"));
  Swatch *swatch = add<Swatch>(form, "swatch");
  DropDown *drop = add<DropDown>(form, "drop");
  TextBox *box = add<TextBox>(form, "box");
  NumberList *list = add<NumberList>(form, "list");
  QPlainTextEdit *page = add<QPlainTextEdit>(form, "page");
  QScrollBar *bar = add<QScrollBar>(form, "bar");
};

TEST_P(States, CanBeSeen) {
  const auto is = [](const QWidget *one, auto... others) { return ((one == others) || ...); };
  for (QWidget *control : form.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
    std::printf("%s%-8s", control == button ? (std::string(GetParam()) + "\n").c_str() : "",
                qUtf8Printable(control->objectName()));
    const QImage resting = shot(*control);
    const QRect mark(0, 0, 16, 24);
    const QRect line(0, 0, control->width(), 1);
    const QImage edge = resting.copy(is(control, check, radio) ? mark : line);
    if (control != picture)
      expect(*control, "border", 4.5, change(edge, ground(edge)));
    if (auto *caption = qobject_cast<QAbstractButton *>(control);
        is(control, button, check, radio, option)) {
      expectText(*caption, "text");
      if (control == button) { // the only one whose caption lies on what is held
        button->setDown(true);
        expectText(*button, "held text");
        button->setDown(false);
      }
    }
    control->setFocus();
    if (control != bar)
      expect(*control, "focus", 3, change(resting, shot(*control)));
    // The status line tells which picture is under the pointer.
    if (!is(control, box, list, page, bar))
      expectHeld(*control, {8, 12}, control == picture ? 1 : 1.5);
    form.setEnabled(false);
    const QImage text = shot(*control).copy(20, 4, 80, 16);
    if (is(control, button, check, radio, drop, box))
      expect(*control, "disabled", 3, change(text, ground(text)));
    rest();
    std::printf("\n");
  }
  EXPECT_EQ(drop->view()->palette().color(QPalette::Base), toQColor(BackgroundColor));
  std::printf("rows    ");
  list->setFocus();
  const QImage none = shot(*list);
  list->setListIndex(1);
  const QImage picked = shot(*list);
  list->setListIndex(-1);
  expect(*list, "current", 3, change(none, shot(*list)));
  expect(*list, "picked", 3, change(shot(*list), picked));
  box->setFocus();
  box->setCursorPosition(0);
  const QImage before = shot(*box);
  box->setCursorPosition(6);
  expect(*box, "caret", 3, change(before, shot(*box)));
  const QImage groove = shot(*bar).copy(0, 100, 16, 20);
  expect(*bar, "thumb", 3, change(groove, shot(*bar).copy(0, 25, 16, 20)));
  for (const int y : {25, 144}) // its thumb, its arrow
    expectHeld(*bar, {8, y});
  std::printf("\n");
}

INSTANTIATE_TEST_SUITE_P(Of, States,
                         testing::Values("default", "light", "contrast", "#3060C0 #FFFFFF",
                                         "#808080 #000000", "#000000 #000000"));

/// The picture of a control without text: the ground, and how far from it other pixels are.
QStringList drawn(const char *name, QWidget &control, QSize size) {
  control.resize(size);
  applyColours(control);
  const QImage image = shot(control);
  QStringList lines{QString::fromLatin1(name)};
  for (int y = 0; y < image.height(); ++y) {
    lines << QString();
    for (int x = 0; x < image.width(); ++x) {
      const int level = qGray(image.pixel(x, y));
      lines.back() += level == 0 ? u'.' : level < 100 ? u'-' : level < 200 ? u'+' : u'#';
    }
  }
  return lines;
}

TEST(Looks, AreAsListed) {
  BackgroundColor = 0;
  TextColor = 0xFFFFFF;
  QStringList now;
  QCheckBox check;
  QRadioButton radio;
  PushOption option(nullptr);
  QPushButton button;
  for (const auto &[name, mark] : std::initializer_list<std::pair<const char *, QAbstractButton *>>{
           {"check", &check}, {"radio", &radio}, {"option", &option}, {"button", &button}}) {
    now << drawn(name, *mark, {15, 15});
    mark->setCheckable(mark != &button);
    mark->setChecked(true);
    now << drawn("turned on", *mark, {15, 15});
    mark->setDown(true);
    now << drawn("held", *mark, {15, 15});
  }
  Swatch colour(nullptr);
  PageButton page(nullptr, {0xFFFFFF, 0xFFFFFF, 0x808080});
  for (const auto &[name, plate] :
       std::initializer_list<std::pair<const char *, QAbstractButton *>>{{"swatch", &colour},
                                                                         {"page", &page}}) {
    now << drawn(name, *plate, {20, 15});
    plate->setDown(true);
    now << drawn("held", *plate, {20, 15});
    plate->setDown(false);
  }
  page.setSelected(true);
  now << drawn("open", page, {20, 15});
  DropDown drop(nullptr);
  TextBox textBox(nullptr);
  QFrame frame;
  frame.setFrameStyle(QFrame::Box | QFrame::Plain);
  now << drawn("drop", drop, {40, 20}) << drawn("box", textBox, {20, 8})
      << drawn("frame", frame, {8, 6});
  QScrollBar bar;
  for (const Qt::Orientation along : {Qt::Vertical, Qt::Horizontal}) {
    bar.setOrientation(along);
    const QSize size = along == Qt::Vertical ? QSize(16, 60) : QSize(60, 16);
    bar.setRange(0, 0);
    now << drawn("nothing to scroll", bar, size);
    bar.setRange(0, 20);
    bar.setPageStep(10);
    bar.setValue(5);
    now << drawn("scrolled", bar, size);
  }
  expectListed("looks.txt", now);
}

} // namespace
} // namespace vnb::test
