#include "platform/linux/x11/desktop_window.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <memory>
#include <string_view>

namespace mirvane {
namespace {

/// Terminals, and windows in which another desktop shows whatever it shows.
constexpr std::array<std::string_view, 52> terminals{"alacritty",
                                                     "anydesk",
                                                     "blackbox",
                                                     "boxes",
                                                     "connections",
                                                     "console",
                                                     "contour",
                                                     "foot",
                                                     "ghostty",
                                                     "gnome-boxes",
                                                     "gnome-connections",
                                                     "gnome-terminal-server",
                                                     "guake",
                                                     "hyper",
                                                     "kgx",
                                                     "kitty",
                                                     "konsole",
                                                     "krdc",
                                                     "ptyxis",
                                                     "putty",
                                                     "qemu",
                                                     "qemu-system-x86_64",
                                                     "rdesktop",
                                                     "remmina",
                                                     "remote-viewer",
                                                     "rxvt",
                                                     "sakura",
                                                     "st",
                                                     "st-256color",
                                                     "tabby",
                                                     "teamviewer",
                                                     "terminator",
                                                     "terminology",
                                                     "termit",
                                                     "tigervnc",
                                                     "tilda",
                                                     "tilix",
                                                     "urxvt",
                                                     "vinagre",
                                                     "virt-manager",
                                                     "virt-viewer",
                                                     "virtualbox",
                                                     "virtualbox machine",
                                                     "virtualboxvm",
                                                     "vmplayer",
                                                     "vmware",
                                                     "vncviewer",
                                                     "warp",
                                                     "x2goclient",
                                                     "xfreerdp",
                                                     "xtigervncviewer",
                                                     "yakuake"};

struct FreeX {
  void operator()(unsigned char* data) const { XFree(data); }
};

/// The first value of a window's property: `length` units of its own format.
struct Property {
  std::unique_ptr<unsigned char, FreeX> data;
  unsigned long length = 0;
};

Property property(Display* display, Window window, const char* name, Atom type) {
  constexpr long longest = 256;
  const Atom atom = XInternAtom(display, name, False);
  Atom actualType = None;
  int format = 0;
  unsigned long length = 0, left = 0;
  unsigned char* data = nullptr;
  XGetWindowProperty(display, window, atom, 0, longest, False, type, &actualType, &format, &length,
                     &left, &data);
  return {std::unique_ptr<unsigned char, FreeX>(data), actualType == type ? length : 0};
}

/// Properties of 32 bits come as longs, whatever the size of a long.
unsigned long numberIn(const Property& property) {
  return property.length == 0 ? 0 : *reinterpret_cast<const unsigned long*>(property.data.get());
}

std::string textIn(const Property& property) {
  return {reinterpret_cast<const char*>(property.data.get()), property.length};
}

std::string windowClass(Display* display, Window window) {
  XClassHint hint{};
  if (XGetClassHint(display, window, &hint) == 0) return {};
  std::string name = hint.res_class != nullptr ? hint.res_class : "";
  XFree(hint.res_name);
  XFree(hint.res_class);
  return name;
}

std::optional<std::string> applicationId(Display* display, Window window) {
  const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
  for (const char* const name : {"_GTK_APPLICATION_ID", "_KDE_NET_WM_DESKTOP_FILE"}) {
    if (auto id = property(display, window, name, utf8); id.length > 0) return textIn(id);
  }
  return std::nullopt;
}

Window parentOf(Display* display, Window window) {
  Window root = None, parent = None;
  Window* children = nullptr;
  unsigned count = 0;
  if (XQueryTree(display, window, &root, &parent, &children, &count) == 0) return None;
  if (children != nullptr) XFree(children);
  return parent == root ? None : parent;
}

/// The window or the first around it that tells its process or class: the focus may be on a part
/// of an application's window.
std::optional<DesktopWindow> described(Display* display, Window window) {
  for (; window != None; window = parentOf(display, window)) {
    const auto processId =
        static_cast<int>(numberIn(property(display, window, "_NET_WM_PID", XA_CARDINAL)));
    const auto name = windowClass(display, window);
    if (processId == 0 && name.empty()) continue;
    auto identifier = applicationId(display, window);
    if (!identifier && !name.empty()) identifier = name;
    return DesktopWindow{window, processId, identifier, processId == getpid(),
                         isTerminalClass(name)};
  }
  return std::nullopt;
}

}  // namespace

bool isTerminalClass(const std::string& windowClass) {
  // Of an application id the last part is the program's name.
  std::string name = windowClass.substr(windowClass.find_last_of('.') + 1);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  // Most others are called so: uxterm, mlterm, pterm, blackbox-terminal.
  const bool isNamedSo = name.ends_with("term") || name.ends_with("terminal");
  return isNamedSo || std::find(terminals.begin(), terminals.end(), name) != terminals.end();
}

std::optional<DesktopWindow> activeWindow(_XDisplay* display) {
  const Window root = DefaultRootWindow(display);
  return described(display, numberIn(property(display, root, "_NET_ACTIVE_WINDOW", XA_WINDOW)));
}

std::optional<DesktopWindow> focusedWindow(_XDisplay* display) {
  Window focused = None;
  int revertTo = 0;
  XGetInputFocus(display, &focused, &revertTo);
  if (focused == None || focused == PointerRoot) return std::nullopt;
  return described(display, focused);
}

bool isFocused(Display* display, std::uint64_t window) {
  const auto focused = focusedWindow(display);
  return focused && focused->id == window;
}

std::optional<DesktopWindow> windowUnderPointer(_XDisplay* display) {
  Window window = DefaultRootWindow(display), root = None, child = None;
  int rootX = 0, rootY = 0, x = 0, y = 0;
  unsigned modifiers = 0;
  // Down to the innermost one: the outer ones may be the window manager's frames.
  while (XQueryPointer(display, window, &root, &child, &rootX, &rootY, &x, &y, &modifiers) != 0 &&
         child != None) {
    window = child;
  }
  return window == root ? std::nullopt : described(display, window);
}

}  // namespace mirvane
