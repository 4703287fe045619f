#include "apps/office/WindowPlaces.h"

#include <com/sun/star/accessibility/XAccessible.hpp>
#include <com/sun/star/accessibility/XAccessibleComponent.hpp>
#include <com/sun/star/awt/PosSize.hpp>
#include <com/sun/star/awt/XTopWindow2.hpp>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/frame/XController.hpp>
#include <com/sun/star/frame/XFrame.hpp>

namespace qb::office {

namespace awt = com::sun::star::awt;
namespace frame = com::sun::star::frame;
using Model = Reference<com::sun::star::frame::XModel>;

namespace {

/// Raises css::uno::RuntimeException if the document has none, as one that is being closed.
Reference<awt::XWindow> Window(const Model& model) {
  const Reference<frame::XController> controller(model->getCurrentController(), uno::UNO_SET_THROW);
  const Reference<frame::XFrame> frame(controller->getFrame(), uno::UNO_SET_THROW);
  return {frame->getContainerWindow(), uno::UNO_SET_THROW};
}

/// `place` without what the window manager draws around a window. What it draws at the top and on the left
/// can be had only as the place of the window within its own bounds; the rest is taken for as wide as on the
/// left.
awt::Rectangle Inside(const Reference<awt::XWindow>& window, awt::Rectangle place) {
  const Reference<com::sun::star::accessibility::XAccessible> accessible(window, UNO_QUERY_THROW);
  const Reference<com::sun::star::accessibility::XAccessibleComponent> component(
      accessible->getAccessibleContext(), UNO_QUERY_THROW);
  const awt::Rectangle frame = component->getBounds();
  place.X += frame.X;
  place.Y += frame.Y;
  place.Width -= 2 * frame.X;
  place.Height -= frame.Y + frame.X;
  return place;
}

}  // namespace

std::vector<awt::Rectangle> Parts(const awt::Rectangle& screen, int count, Arrangement arrangement) {
  std::vector<awt::Rectangle> parts;
  for (int part = 0; part < count; ++part) {
    awt::Rectangle place = screen;
    if (arrangement == Arrangement::kSideBySide) {
      place.X = screen.X + screen.Width * part / count;
      place.Width = screen.X + screen.Width * (part + 1) / count - place.X;
    } else {
      place.Y = screen.Y + screen.Height * part / count;
      place.Height = screen.Y + screen.Height * (part + 1) / count - place.Y;
    }
    parts.push_back(place);
  }
  return parts;
}

void PlaceWindow(const Model& model, const awt::Rectangle& place) {
  const Reference<awt::XWindow> window = Window(model);
  const Reference<awt::XTopWindow2> top(window, UNO_QUERY_THROW);
  top->setIsMaximized(false);
  top->setIsMinimized(false);
  const awt::Rectangle inside = Inside(window, place);
  window->setPosSize(inside.X, inside.Y, inside.Width, inside.Height, awt::PosSize::POSSIZE);
  top->toFront();
}

bool HasPlace(const Model& model, const awt::Rectangle& place) {
  const Reference<awt::XWindow> window = Window(model);
  const awt::Rectangle inside = Inside(window, place);
  // The height that the window tells is without its menu.
  const awt::Rectangle now = window->getPosSize();
  return now.X == inside.X && now.Y == inside.Y && now.Width == inside.Width;
}

}  // namespace qb::office
