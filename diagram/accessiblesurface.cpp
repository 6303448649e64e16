// SPDX-License-Identifier: MIT
#include "diagram/accessiblesurface.h"

#include "diagram/surface.h"
#include "document/displaynames.h"

#include <QAccessibleWidget>
#include <QHash>

#include <algorithm>

namespace vnb {
namespace {

const QString linkAction = QStringLiteral("link");

/// A device or link, told by its number: it is whatever has that number now.
class Item : public QAccessibleInterface {
public:
  Item(Surface &surface, std::int32_t number) : m_surface(surface), m_number(number) {}

  std::int32_t number() const { return m_number; }

  QObject *object() const override { return nullptr; }
  QAccessibleInterface *parent() const override {
    return QAccessible::queryAccessibleInterface(&m_surface);
  }
  QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
  void setText(QAccessible::Text /*text*/, const QString & /*value*/) override {}
  QRect rect() const override {
    const QRect area = isValid() ? place() : QRect();
    return {m_surface.mapToGlobal(area.topLeft()), area.size()};
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name && isValid() ? name() : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.offscreen = state.invalid || !m_surface.visibleRegion().intersects(place());
    return state;
  }

protected:
  Surface &surface() const { return m_surface; }
  /// Pixels of the surface.
  virtual QRect place() const = 0;
  virtual QString name() const = 0;

private:
  Surface &m_surface;
  std::int32_t m_number;
};

/// A device: pressed, it is selected; it offers its menu and the drawing of links.
class Device : public Item, public QAccessibleActionInterface {
public:
  using Item::Item;

  bool isValid() const override {
    return number() <= std::min(surface().picSystem.UBound(), UBound(Systems));
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state = Item::state();
    state.selectable = true;
    state.selected = number() == lSelectedItem;
    return state;
  }
  void *interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
  }

  QStringList actionNames() const override { return {pressAction(), showMenuAction(), linkAction}; }
  QString localizedActionDescription(const QString &action) const override {
    return action == linkAction ? QStringLiteral("Starts, finishes or cancels a link")
                                : QAccessibleActionInterface::localizedActionDescription(action);
  }
  QStringList keyBindingsForAction(const QString & /*action*/) const override { return {}; }
  /// Later, from the event loop: a menu would keep the caller waiting.
  void doAction(const QString &action) override {
    QMetaObject::invokeMethod(
        &surface(),
        [&surface = surface(), number = number(), action] { act(surface, number, action); },
        Qt::QueuedConnection);
  }

protected:
  QRect place() const override { return surface().spriteRect(number()).within(surface().rect()); }
  QString name() const override { return deviceName(number()); }

private:
  static void act(Surface &surface, std::int32_t number, const QString &action) {
    SurfaceEvents *events = surface.events;
    // When its turn comes, the device may have gone.
    if (events == nullptr || number > surface.picSystem.UBound())
      return;
    const SpriteRect sprite = surface.spriteRect(number);
    const QPoint middle(sprite.Width / 2, sprite.Height / 2);
    const QPoint global = surface.mapToGlobal(sprite.within(surface.rect()).center());
    // Not the left button, which would start a drag.
    if (action != linkAction)
      events->picSystem_MouseDown(number, Qt::RightButton, middle, global);
    if (action == showMenuAction())
      events->picSystem_MouseUp(number, Qt::RightButton, global);
    if (action == linkAction)
      events->picSystem_DblClick(number);
  }
};

/// A link, which can be read and not acted upon.
class Link : public Item {
public:
  using Item::Item;

  bool isValid() const override {
    return number() <= std::min(surface().lneLink.UBound(), UBound(Links));
  }
  QAccessible::Role role() const override { return QAccessible::Graphic; }

protected:
  QRect place() const override { return surface().lneLink(number()).within(surface().rect()); }
  QString name() const override {
    const LinkRec &record = at(Links, number());
    return QStringLiteral("Link %1: %2 to %3")
        .arg(QString::number(number()), end(record.lFrom), end(record.lTo));
  }

private:
  /// A file may name devices that aren't there.
  static QString end(std::int32_t device) {
    return device >= 0 && device <= UBound(Systems) ? deviceName(device)
                                                    : QStringLiteral("no device");
  }
};

/// Devices first, then links, each made when it is first asked for.
class SurfaceAccessible : public QAccessibleWidget {
public:
  explicit SurfaceAccessible(Surface &surface)
      : QAccessibleWidget(&surface, QAccessible::List), m_surface(surface) {}
  ~SurfaceAccessible() override {
    for (const auto &made : {m_devices, m_links})
      for (const QAccessible::Id id : made)
        QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return devices() + m_surface.lneLink.UBound(); }
  QAccessibleInterface *child(int index) const override {
    if (index < 0 || index >= childCount())
      return nullptr;
    return index < devices() ? item<Device>(m_devices, index)
                             : item<Link>(m_links, index - devices() + 1);
  }
  int indexOfChild(const QAccessibleInterface *child) const override {
    if (const auto *device = dynamic_cast<const Device *>(child))
      return device->number();
    if (const auto *link = dynamic_cast<const Link *>(child))
      return devices() + link->number() - 1;
    return -1;
  }
  QAccessibleInterface *childAt(int x, int y) const override {
    // Beside all sprites that is number -1, which is no child.
    return child(m_surface.spriteAt(m_surface.mapFromGlobal(QPoint(x, y))));
  }

private:
  /// Kept also while a number is free: whoever holds one finds it invalid, not gone.
  using Made = QHash<std::int32_t, QAccessible::Id>;

  int devices() const { return m_surface.picSystem.UBound() + 1; }
  template <class T>
  QAccessibleInterface *item(Made &made, std::int32_t number) const {
    const auto found = made.constFind(number);
    if (found != made.cend())
      return QAccessible::accessibleInterface(*found);
    auto *item = new T(m_surface, number); // Qt's from here on
    made.insert(number, QAccessible::registerAccessibleInterface(item));
    return item;
  }

  Surface &m_surface;
  mutable Made m_devices;
  mutable Made m_links;
};

QAccessibleInterface *interfaceOf(const QString & /*className*/, QObject *object) {
  auto *surface = dynamic_cast<Surface *>(object);
  return surface == nullptr ? nullptr : new SurfaceAccessible(*surface);
}

} // namespace

void installSurfaceAccess() {
  QAccessible::installFactory(interfaceOf);
}

} // namespace vnb
