#pragma once

#include <jsw/view.h>

/// The view module's entry points: the name and function type of each.
namespace jsw::view {

template <class Type>
struct EntryPoint {
    using Function = Type;
    const char* name;
};

#define JSW_VIEW_ENTRY_POINT(name, type) inline constexpr EntryPoint<type> k##name{#name};
JSW_VIEW_ENTRY_POINTS(JSW_VIEW_ENTRY_POINT)
#undef JSW_VIEW_ENTRY_POINT

}  // namespace jsw::view
