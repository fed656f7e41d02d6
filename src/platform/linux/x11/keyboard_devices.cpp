#include "platform/linux/x11/keyboard_devices.h"

#include <X11/Xlib.h>
#include <X11/extensions/XInput2.h>

#include <string_view>

namespace mirvane {
namespace {

/// The server tells of it by the name alone.
bool isSynthetic(const XIDeviceInfo& device) {
  return std::string_view(device.name).find("XTEST") != std::string_view::npos;
}

template <typename Condition>
std::vector<int> devicesThat(Display* display, Condition condition) {
  std::vector<int> ids;
  int count = 0;
  XIDeviceInfo* const devices = XIQueryDevice(display, XIAllDevices, &count);
  for (int i = 0; i < count; ++i) {
    if (condition(devices[i])) ids.push_back(devices[i].deviceid);
  }
  XIFreeDeviceInfo(devices);
  return ids;
}

}  // namespace

std::vector<int> hardwareKeyboards(Display* display) {
  return devicesThat(display, [](const XIDeviceInfo& device) {
    return device.use == XISlaveKeyboard && device.enabled != 0 && !isSynthetic(device);
  });
}

std::vector<int> enabledDevices(Display* display) {
  return devicesThat(display, [](const XIDeviceInfo& device) { return device.enabled != 0; });
}

std::vector<int> syntheticKeyboards(Display* display) {
  return devicesThat(display, [](const XIDeviceInfo& device) {
    return device.use == XISlaveKeyboard && isSynthetic(device);
  });
}

std::vector<int> allKeyboards(Display* display) {
  return devicesThat(display, [](const XIDeviceInfo& device) {
    return device.use == XISlaveKeyboard || device.use == XIFloatingSlave;
  });
}

}  // namespace mirvane
