#include "platform/linux/x11/keyboard_text.h"

#include <X11/XF86keysym.h>
#include <X11/Xlib-xcb.h>
#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <clocale>
#include <utility>

#include "platform/key_codes.h"

namespace mirvane {
namespace {

/// What `write` writes into a buffer of a given size; it returns the length it wants to write,
/// which may be any.
template <typename Write>
std::string written(Write write) {
  const int length = write(nullptr, std::size_t{0});
  if (length <= 0) return {};
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  write(text.data(), text.size());
  text.pop_back();
  return text;
}

void copyModifiers(xkb_state& from, xkb_state& to) {
  xkb_state_update_mask(&to, xkb_state_serialize_mods(&from, XKB_STATE_MODS_DEPRESSED),
                        xkb_state_serialize_mods(&from, XKB_STATE_MODS_LATCHED),
                        xkb_state_serialize_mods(&from, XKB_STATE_MODS_LOCKED),
                        xkb_state_serialize_layout(&from, XKB_STATE_LAYOUT_DEPRESSED),
                        xkb_state_serialize_layout(&from, XKB_STATE_LAYOUT_LATCHED),
                        xkb_state_serialize_layout(&from, XKB_STATE_LAYOUT_LOCKED));
}

}  // namespace

void KeyboardText::Free::operator()(xkb_context* context) const {
  xkb_context_unref(context);
}
void KeyboardText::Free::operator()(xkb_keymap* keymap) const {
  xkb_keymap_unref(keymap);
}
void KeyboardText::Free::operator()(xkb_state* state) const {
  xkb_state_unref(state);
}
void KeyboardText::Free::operator()(xkb_compose_state* state) const {
  xkb_compose_state_unref(state);
}

KeyboardText::KeyboardText(_XDisplay* display)
    : display_(display),
      context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)),
      compose_(makeComposeState()) {
  xkb_x11_setup_xkb_extension(XGetXCBConnection(display_), XKB_X11_MIN_MAJOR_XKB_VERSION,
                              XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                              nullptr, nullptr, nullptr, nullptr);
  reloadIfStale();
}

KeyboardText::~KeyboardText() = default;

std::unique_ptr<xkb_compose_state, KeyboardText::Free> KeyboardText::makeComposeState() const {
  const char* const locale = std::setlocale(LC_CTYPE, nullptr);
  auto* const table = xkb_compose_table_new_from_locale(
      context_.get(), locale != nullptr ? locale : "C", XKB_COMPOSE_COMPILE_NO_FLAGS);
  if (table == nullptr) return nullptr;
  std::unique_ptr<xkb_compose_state, Free> state(
      xkb_compose_state_new(table, XKB_COMPOSE_STATE_NO_FLAGS));
  xkb_compose_table_unref(table);
  return state;
}

void KeyboardText::reloadIfStale() {
  if (!isStale_) return;
  isStale_ = false;
  auto* const connection = XGetXCBConnection(display_);
  const auto device = xkb_x11_get_core_keyboard_device_id(connection);
  keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection, device,
                                               XKB_KEYMAP_COMPILE_NO_FLAGS));
  std::unique_ptr<xkb_state, Free> state(
      keymap_ ? xkb_x11_state_new_from_device(keymap_.get(), connection, device) : nullptr);
  // The server is ahead of the keys that are still to be told: it may know of a Shift that comes
  // after them.
  if (state && state_) copyModifiers(*state_, *state);
  state_ = std::move(state);
}

void KeyboardText::update(std::uint32_t baseMods, std::uint32_t latchedMods,
                          std::uint32_t lockedMods, int baseGroup, int latchedGroup,
                          int lockedGroup) {
  if (!state_) return;
  xkb_state_update_mask(
      state_.get(), baseMods, latchedMods, lockedMods, static_cast<xkb_layout_index_t>(baseGroup),
      static_cast<xkb_layout_index_t>(latchedGroup), static_cast<xkb_layout_index_t>(lockedGroup));
}

std::optional<std::string> KeyboardText::press(std::uint32_t scanCode) {
  reloadIfStale();
  if (!state_ || !compose_) return textOf(scanCode);
  const auto symbol = xkb_state_key_get_one_sym(state_.get(), scanCode);
  // Modifier keys are ignored by the sequence and have no text.
  if (xkb_compose_state_feed(compose_.get(), symbol) == XKB_COMPOSE_FEED_IGNORED) {
    return std::nullopt;
  }
  switch (xkb_compose_state_get_status(compose_.get())) {
    case XKB_COMPOSE_COMPOSING:
    case XKB_COMPOSE_CANCELLED:
      return std::nullopt;
    case XKB_COMPOSE_COMPOSED:
      return composedText();
    case XKB_COMPOSE_NOTHING:
      break;
  }
  return textOf(scanCode);
}

std::string KeyboardText::composedText() const {
  return written([this](char* buffer, std::size_t size) {
    return xkb_compose_state_get_utf8(compose_.get(), buffer, size);
  });
}

std::optional<std::string> KeyboardText::textOf(std::uint32_t scanCode) {
  reloadIfStale();
  if (!state_) return std::nullopt;
  if (xkb_state_key_get_one_sym(state_.get(), scanCode) == XKB_KEY_BackSpace) return "\x7F";
  auto text = written([&](char* buffer, std::size_t size) {
    return xkb_state_key_get_utf8(state_.get(), scanCode, buffer, size);
  });
  if (text.empty()) return std::nullopt;
  return text;
}

bool KeyboardText::isApartFromTyping(std::uint32_t scanCode) const {
  if (!state_) return false;
  const auto symbol = xkb_state_key_get_one_sym(state_.get(), scanCode);
  const auto isWithin = [symbol](xkb_keysym_t first, xkb_keysym_t last) {
    return symbol >= first && symbol <= last;
  };
  return isWithin(XKB_KEY_Shift_L, XKB_KEY_Hyper_R) ||
         isWithin(XKB_KEY_ISO_Lock, XKB_KEY_ISO_Level5_Lock) || symbol == XKB_KEY_Mode_switch ||
         symbol == XKB_KEY_Num_Lock || symbol == XKB_KEY_Scroll_Lock ||
         isWithin(XF86XK_MonBrightnessUp, XF86XK_AudioNext);
}

std::uint64_t KeyboardText::modifierFlags() const {
  if (!state_) return 0;
  const auto isActive = [this](const char* name) {
    return xkb_state_mod_name_is_active(state_.get(), name, XKB_STATE_MODS_EFFECTIVE) > 0;
  };
  std::uint64_t flags = 0;
  if (isActive(XKB_MOD_NAME_CAPS)) flags |= modifier::capsLock;
  if (isActive(XKB_MOD_NAME_SHIFT)) flags |= modifier::shift;
  if (isActive(XKB_MOD_NAME_CTRL)) flags |= modifier::control;
  if (isActive(XKB_MOD_NAME_ALT)) flags |= modifier::option;
  if (isActive(XKB_MOD_NAME_LOGO)) flags |= modifier::command;
  return flags;
}

}  // namespace mirvane
