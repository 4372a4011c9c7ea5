#include "linux/own_objects.h"

#include <QtGui/QAccessible>
#include <QtGui/QCursor>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include "linux/qt_text.h"

namespace pointalk::linux {
namespace {

constexpr int kDeepestChild = 40;

std::optional<Text> TextOf(QAccessibleInterface& object, QAccessible::Text which) {
  const QString text = object.text(which);
  if (text.isEmpty()) return std::nullopt;
  return FromQt(text);
}

// The toolkit counts as large as the screen is scaled.
QPoint Counted(Point screen) {
  const QScreen* const first = QGuiApplication::primaryScreen();
  const double scale = first == nullptr ? 1 : first->devicePixelRatio();
  return {static_cast<int>(screen.x / scale), static_cast<int>(screen.y / scale)};
}

}  // namespace

std::optional<OwnObject> OwnObjectAt(Point screen) {
  const QPoint place = Counted(screen);
  QWidget* const window = QApplication::topLevelAt(place);
  QAccessibleInterface* object = window == nullptr ? nullptr : QAccessible::queryAccessibleInterface(window);
  for (int level = 0; object != nullptr && level < kDeepestChild; ++level) {
    QAccessibleInterface* const child = object->childAt(place.x(), place.y());
    if (child == nullptr || child == object || !child->isValid()) break;
    object = child;
  }
  if (object == nullptr || !object->isValid()) return std::nullopt;
  OwnObject own;
  own.number = QAccessible::uniqueId(object);
  own.facts.role = static_cast<std::int32_t>(object->role());
  own.facts.name = TextOf(*object, QAccessible::Name);
  own.facts.description = TextOf(*object, QAccessible::Description);
  own.facts.value = TextOf(*object, QAccessible::Value);
  own.origin = {object->rect().x(), object->rect().y()};
  return own;
}

}  // namespace pointalk::linux
