// SPDX-License-Identifier: MIT
/// All that a step of a session changes.
#pragma once

#include "appearance/theme.h"
#include "gesture.h"
#include "widgets/drag.h"

#include <QPainter>

#include <map>

namespace vnb::test {

/// Of all buttons that show a theme's pictures: the toolbar's, and those of the subnets.
inline QStringList buttonTags() {
  QStringList tags;
  for (const ToolbarButton &button : toolbarButtons())
    tags << QString::fromLatin1(button.tag);
  return tags << u"ADDSUB"_qs << u"DELSUB"_qs;
}

/// The editor, and what is new in it since it was last asked: message boxes, dialogs, panels,
/// records, frames, lines, looks, and what the pointer brings about.
class Changes : public Gesture {
public:
  Changes() {
    BackgroundColor = 0;
    GridColor = 0x404040;
    GridRes = 20;
    ShowGrid = LoadLastFile = false;
    ThemeFile = ThemeName = QString();
    for (const QString &tag : buttonTags())
      main.view().loadButtonImages(tag, u"||"_qs);
    main.view().linkColorChanged();
    m_known = state();
  }

  /// From here on tells where the surface is painted anew as well.
  void watchPainting() {
    surface().installEventFilter(&m_repaints);
    QCoreApplication::processEvents();
    m_repaints.area = {};
  }

protected:
  /// Adds what is new since it was called last.
  void note() {
    for (const FileDialog &dialog : std::exchange(dialogs, {}))
      changes << dialog.owner->objectName() + u": "_qs + dialog.title + u" \""_qs +
                     dialog.fileName + u"\" of "_qs + dialog.filter +
                     (dialog.folder.isEmpty() ? QString() : u" in "_qs + dialog.folder) +
                     (dialog.askBeforeOverwriting ? u", asks"_qs : QString());
    for (const MessageBox &box : std::exchange(boxes.boxes, {})) {
      const bool report = box.icon == MessageBox::Icon::Critical;
      changes << u'"' + QString::fromStdString(boxes.texts.front()) + u'"' +
                     (report ? u' ' + box.text.section(u'\n', 1, -3) : QString());
      boxes.texts.erase(boxes.texts.begin());
      if (!report)
        changes << u"titled "_qs + box.title +
                       (box.buttons == MessageBox::Buttons::YesNo ? u", Yes or No"_qs : QString()) +
                       (box.icon == MessageBox::Icon::Question ? u", a question"_qs : QString());
    }
    if (const QRect area = std::exchange(m_repaints.area, {}).boundingRect(); !area.isEmpty())
      changes << u"painted "_qs + QString::fromStdString(areaText(area, seen())) + leftOver();
    State now = state();
    for (const auto &[name, value] : now)
      if (const auto before = m_known.find(name);
          before == m_known.end() || before->second != value)
        changes << name + u'=' + value;
    for (const auto &[name, value] : m_known)
      if (!now.contains(name) && (!name.contains(u'.') || now.contains(name.section(u'.', 0, 0))))
        changes << u"no "_qs + name;
    m_known = std::move(now);
  }

  QStringList changes;

private:
  using State = std::map<QString, QString>;

  QRect seen() { return surface().parentWidget()->rect().translated(-surface().pos()); }
  /// Whether the window shows what a fresh painting would.
  QString leftOver() {
    QImage fresh(seen().size(), QImage::Format_RGB32);
    QPainter painter(&fresh);
    painter.translate(-seen().topLeft());
    surface().paint(painter, seen());
    const QRect place(surface().parentWidget()->mapTo(&main, QPoint()), seen().size());
    return difference(onScreen(main).copy(place), fresh) > 8 ? u", with traces"_qs : QString();
  }

  State state() {
    State out{{u"selected"_qs, QString::number(lSelectedItem)},
              {u"status"_qs, QString::fromStdString(status())},
              {u"place"_qs, QStringLiteral("%1,%2").arg(main.x()).arg(main.y())},
              {u"scrolled"_qs, QStringLiteral("%1,%2").arg(surface().x()).arg(surface().y())},
              {u"band"_qs, QString::fromStdString(band())},
              {u"file"_qs, Cdlg.FileName},
              {u"title"_qs, Cdlg.FileTitle},
              {u"view"_qs, QStringLiteral("%1x%2, goes to %3,%4")
                               .arg(surface().parentWidget()->width())
                               .arg(surface().parentWidget()->height())
                               .arg(child<QScrollBar>("hsbScroll").maximum())
                               .arg(child<QScrollBar>("vsbScroll").maximum())}};
    if (Drag::instance().isActive())
      out[u"drag"_qs] = outline();
    addForms(out);
    addDocument(out);
    addDiagram(out);
    addLook(out);
    return out;
  }
  /// Of a drag: its size and place, and the beginning of its dashes.
  static QString outline() {
    for (QWidget *window : QApplication::topLevelWidgets())
      if (window->windowFlags().testFlag(Qt::BypassWindowManagerHint)) {
        const QImage image = window->grab().toImage();
        QString dashes = QStringLiteral("%1x%2 at %3,%4 ")
                             .arg(image.width())
                             .arg(image.height())
                             .arg(window->x())
                             .arg(window->y());
        for (int x = 0; x < 12; ++x)
          dashes += image.pixelColor(x, 0) == Qt::white ? u'-' : u'.';
        return dashes;
      }
    return u"without an outline"_qs;
  }
  void addForms(State &out) {
    main.forms().forEachLoaded([&](FormWindow &each) {
      if (!each.isVisible())
        return;
      const bool themed = each.palette().color(QPalette::Window) == toQColor(BackgroundColor);
      out[each.objectName()] = themed ? u"open"_qs : u"unthemed"_qs;
      for (const auto &[name, value] : facts(each)) {
        QString &fact = out[each.objectName() + u'.' + name];
        fact += fact.isEmpty() ? value : u'+' + value;
      }
    });
  }
  static void addDocument(State &out) {
    for (const auto &[name, first, rows] : {std::tuple(u"system"_qs, 0, dumpSystems()),
                                            {u"link"_qs, 1, dumpLinks()},
                                            {u"subnet"_qs, 1, dumpSubnets()},
                                            {u"text"_qs, 1, dumpData()}})
      for (int number = first; const QString &row : QString::fromStdString(rows).split(u';')) {
        if (!row.isEmpty())
          out[name + u' ' + QString::number(number)] = row;
        ++number;
      }
    out[u"header"_qs] = QStringLiteral("%1,%2,%3,%4,%5")
                            .arg(LanHeader.NAME, LanHeader.COMPANY, LanHeader.IP)
                            .arg(LanHeader.XPOS)
                            .arg(LanHeader.YPOS);
  }
  void addDiagram(State &out) {
    for (const QString &frame : QString::fromStdString(frames()).split(u';', Qt::SkipEmptyParts))
      out[u"frame "_qs + frame.section(u' ', 0, 0)] = frame.section(u' ', 1);
    for (std::int32_t i = 1; i <= surface().lneLink.UBound(); ++i) {
      const Line &each = surface().lneLink(i);
      out[u"line "_qs + QString::number(i)] =
          QStringLiteral("%1%2,%3-%4,%5%6")
              .arg(each.Visible ? QString() : u"hidden "_qs)
              .arg(each.X1)
              .arg(each.Y1)
              .arg(each.X2)
              .arg(each.Y2)
              .arg(each.BorderColor == LinkSelColor ? u"!"
                   : each.BorderColor == LinkColor  ? u""
                                                    : u" of another colour");
    }
  }
  /// The grid as it is drawn, far from all devices.
  void addLook(State &out) {
    out[u"theme"_qs] = ThemeFile;
    out[u"settings"_qs] = QStringLiteral("%1%2%3")
                              .arg(ShowGrid ? u"grid, "_qs : QString())
                              .arg(GridRes)
                              .arg(LoadLastFile ? u", last"_qs : QString());
    QStringList grid;
    QImage row(100, 1, QImage::Format_RGB32);
    QPainter painter(&row);
    painter.translate(-2001, -1999);
    surface().paint(painter, {2001, 1999, 100, 1});
    for (int x = 0; x < row.width(); ++x)
      if (row.pixel(x, 0) != row.pixel(1, 0))
        grid << QString::number(x + 2001);
    out[u"grid"_qs] =
        grid.mid(0, 2).join(u',') + (grid.empty() ? QString() : u' ' + toQColor(GridColor).name());
    out[u"ground"_qs] = row.pixelColor(1, 0).name();
    for (const ColourRow &each : colourRows)
      out[u"colour "_qs + QString::fromStdString(std::string(each.key))] =
          toQColor(*each.colour).name();
    for (const Line *each : {&surface().lneLink(0), &surface().lneXOR})
      if (each->BorderColor != LinkColor)
        out[u"another colour"_qs] = toQColor(each->BorderColor).name();
    QStringList pictures, buttons;
    for (std::int32_t lType = 1; lType <= SystemType::Last; ++lType) {
      const QSize size = DeviceImages(lType).size();
      pictures << QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
    }
    for (const QString &tag : buttonTags()) {
      const ButtonImageSet &set = ButtonImages(tag);
      buttons << QStringLiteral("%1/%2/%3")
                     .arg(set.Off.width())
                     .arg(set.Over.width())
                     .arg(set.Down.width());
    }
    for (const ToolbarButton &button : toolbarButtons())
      if (child(button.name).sizeHint() != ButtonImages(QString::fromLatin1(button.tag)).Off.size())
        buttons << QLatin1String(button.name) + u" shows another"_qs;
    out[u"pictures"_qs] = pictures.join(u' ');
    out[u"buttons"_qs] = buttons.join(u' ');
  }

  State m_known;
  Repaints m_repaints;
};

} // namespace vnb::test
