#pragma once

// OpenGL types, enumerators and functions. Functions load themselves at their first call and need a current context.

#ifndef __khrplatform_h_
#include <epoxy/gl.h>
#else
// EGL headers came first and brought the same enumeration along, which nothing here uses.
#define KHRONOS_FALSE EPOXY_KHRONOS_FALSE
#define KHRONOS_TRUE EPOXY_KHRONOS_TRUE
#define KHRONOS_BOOLEAN_ENUM_FORCE_SIZE EPOXY_KHRONOS_BOOLEAN_ENUM_FORCE_SIZE
#define khronos_boolean_enum_t epoxy_khronos_boolean_enum_t
#include <epoxy/gl.h>
#undef KHRONOS_FALSE
#undef KHRONOS_TRUE
#undef KHRONOS_BOOLEAN_ENUM_FORCE_SIZE
#undef khronos_boolean_enum_t
#endif
