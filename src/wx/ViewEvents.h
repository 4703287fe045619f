#pragma once

#include <wx/dataview.h>

#include <functional>

namespace qb {

/// Calls `handler` for a key that goes down in the view.
void BindKeyDown(wxDataViewCtrl& view, const std::function<void(wxKeyEvent&)>& handler);
/// Calls `handler` when the right mouse button is let go in the view. Not when it goes down: a menu that pops
/// up then would be closed by the button's release.
void BindRightUp(wxDataViewCtrl& view, std::function<void()> handler);

/// Leaves Ctrl+F, with which the desktop's own rows begin a search, to the menus.
void LeaveSearchKeyToMenus(wxDataViewCtrl& view);
/// Lets the search that the desktop's own rows begin at the first letter typed find a row by the beginning of
/// any text in it, whatever the case. Without this it would look for nothing, and take the selection away.
void SearchByAnyText(wxDataViewCtrl& view);

/// The character code of the Return key.
inline constexpr int kReturnCode = 13;
inline constexpr int kRightButton = 2;

/// Raises the key-press event for Return and the mouse event for the keys that ask for a context menu. True
/// if the key was one of them. The events are raised when the view is done with its own.
template <class AnyView>
bool RaiseKey(const wxKeyEvent& event, wxWindow& window, AnyView& view);

/// Raises the double click, when the view is done with its own.
template <class AnyView>
void RaiseDoubleClick(wxWindow& window, AnyView& view) {
  window.CallAfter([&view] {
    if (view.DblClick) view.DblClick();
  });
}

/// Raises the release of the right mouse button, when the view is done with its own.
template <class AnyView>
void RaiseContextMenu(wxWindow& window, AnyView& view) {
  window.CallAfter([&view] {
    if (view.MouseUp) view.MouseUp(kRightButton);
  });
}

template <class AnyView>
bool RaiseKey(const wxKeyEvent& event, wxWindow& window, AnyView& view) {
  const int key = event.GetKeyCode();
  if (!event.HasAnyModifiers() && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)) {
    window.CallAfter([&view] {
      if (view.KeyPress) view.KeyPress(kReturnCode);
    });
    return true;
  }
  if (key == WXK_WINDOWS_MENU || key == WXK_MENU || (key == WXK_F10 && event.GetModifiers() == wxMOD_SHIFT)) {
    RaiseContextMenu(window, view);
    return true;
  }
  return false;
}

}  // namespace qb
