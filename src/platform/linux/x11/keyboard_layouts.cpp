#include "platform/linux/x11/keyboard_layouts.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <utility>

#include "platform/linux/x11/keyboard_description.h"
#include "platform/linux/x11/keyboard_devices.h"

namespace mirvane {
namespace {

/// Null when it cannot be read.
KeyboardDescription layoutOf(int keyboard, Display* display) {
  KeyboardDescription layout(
      XkbGetMap(display, XkbAllMapComponentsMask, static_cast<unsigned>(keyboard)));
  // A keyboard without any modifier has no table of them.
  const bool isWhole = layout && layout->map != nullptr && layout->map->key_sym_map != nullptr &&
                       layout->map->modmap != nullptr;
  return isWhole ? std::move(layout) : nullptr;
}

bool isSameKey(const XkbDescRec* a, const XkbDescRec* b, int key) {
  const auto count = XkbKeyNumSyms(a, key);
  return count == XkbKeyNumSyms(b, key) && XkbKeyGroupInfo(a, key) == XkbKeyGroupInfo(b, key) &&
         a->map->modmap[key] == b->map->modmap[key] &&
         std::equal(XkbKeySymsPtr(a, key), XkbKeySymsPtr(a, key) + count, XkbKeySymsPtr(b, key));
}

bool isSameLayout(const XkbDescRec* a, const XkbDescRec* b) {
  if (a->min_key_code != b->min_key_code || a->max_key_code != b->max_key_code) return false;
  for (int key = a->min_key_code; key <= a->max_key_code; ++key) {
    if (!isSameKey(a, b, key)) return false;
  }
  return true;
}

}  // namespace

void shareLayoutOf(int keyboard, _XDisplay* display) {
  const auto layout = layoutOf(keyboard, display);
  if (layout == nullptr) return;
  for (const int synthetic : syntheticKeyboards(display)) {
    const auto other = layoutOf(synthetic, display);
    if (other == nullptr || isSameLayout(layout.get(), other.get())) continue;
    layout->device_spec = static_cast<unsigned short>(synthetic);
    XkbSetMap(display, XkbAllMapComponentsMask, layout.get());
    // Others type over connections of their own.
    XSync(display, False);
  }
}

}  // namespace mirvane
