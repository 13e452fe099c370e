/// @file
/// Export marks of Galdren_Util.
#pragma once

#if defined(GALDREN_STATIC)
#define GALDREN_UTIL_API
#elif defined(GALDREN_UTIL_BUILD)
#define GALDREN_UTIL_API __declspec(dllexport)
#else
#define GALDREN_UTIL_API __declspec(dllimport)
#endif

/// Lets the compiler check the arguments of a function against its printf format.
#if defined(__clang__)
#define GALDREN_PRINTF(format_index, first_argument) \
    __attribute__((format(printf, format_index, first_argument)))
#elif defined(__GNUC__)
#define GALDREN_PRINTF(format_index, first_argument) \
    __attribute__((format(gnu_printf, format_index, first_argument)))
#else
#define GALDREN_PRINTF(format_index, first_argument)
#endif
