#include "platform/simulated/event_dispatcher.h"

#include "platform/simulated/key_editing.h"

namespace mirvane::simulated {
namespace {

MonitorScope scopeOf(const Application& application) {
  return application.isOwn() ? MonitorScope::local : MonitorScope::global;
}

}  // namespace

void EventDispatcher::deliverKey(const InputEvent& event) {
  notifyKeyMonitors(event);
  const auto element = workspace_.focusedElement();
  if (element && event.kind == EventMask::keyDown) applyKey(event, *element);
}

void EventDispatcher::deliverSynthesizedKey(const InputEvent& event) {
  notifyKeyMonitors(event);
  const auto element = workspace_.focusedElement();
  if (element && event.kind == EventMask::keyDown) applySynthesizedKey(event, *element);
}

void EventDispatcher::deliverPointerDown(const InputEvent& event, const Application& target) {
  monitors_.deliver(scopeOf(target), event);
}

void EventDispatcher::notifyKeyMonitors(const InputEvent& event) {
  const Application* const application = workspace_.frontmost();
  if (application == nullptr) return;
  const bool isHidden = !application->isOwn() && secureInput_.isEnabled();
  if (!isHidden) monitors_.deliver(scopeOf(*application), event);
}

}  // namespace mirvane::simulated
