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

template <typename Type>
[[nodiscard]] GObjectPointer<Type> newReference(Type* object) {
  return GObjectPointer<Type>(static_cast<Type*>(g_object_ref(object)));
}

struct GFree {
  void operator()(gpointer memory) const { g_free(memory); }
};

struct GHashTableUnref {
  void operator()(GHashTable* table) const { g_hash_table_unref(table); }
};

/// Memory that libatspi has handed over.
template <typename Type>
using GPointer = std::unique_ptr<Type, GFree>;

}  // namespace mirvane
