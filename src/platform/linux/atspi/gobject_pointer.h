#pragma once

#include <atspi/atspi.h>

#include <memory>

namespace mirvane {

struct GObjectUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};

/// A reference to one of libatspi's objects, ours to give up.
template <typename Type>
using GObjectPointer = std::unique_ptr<Type, GObjectUnref>;

struct GFree {
  void operator()(gpointer memory) const { g_free(memory); }
};

/// Memory that libatspi has handed over.
template <typename Type>
using GPointer = std::unique_ptr<Type, GFree>;

}  // namespace mirvane
