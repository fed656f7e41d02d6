#include "platform/simulated/pointer.h"

namespace mirvane::simulated {

void Pointer::click(Application& application) {
  InputEvent event;
  event.kind = EventMask::pointerDown;
  event.timestamp = clock_.monotonicSeconds();
  dispatcher_.deliverPointerDown(event, application);
  if (workspace_.frontmost() != &application) workspace_.activate(application);
}

void Pointer::click(Application& application, TextElement& element, std::int64_t position) {
  click(application);
  application.focus(element);
  element.placeCaret(position);
}

}  // namespace mirvane::simulated
