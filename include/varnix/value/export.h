// ValueObject: the visibility of the public names.
//
// The library is built with hidden visibility; what carries VARNIX_VALUE_EXPORT is what a program
// can link against, and nothing else is.

#ifndef VARNIX_VALUE_EXPORT_H
#define VARNIX_VALUE_EXPORT_H

/// Marks a declaration as part of the public binary interface. Every supported compiler (g++,
/// clang) knows the attribute; it has no effect on a static library.
#define VARNIX_VALUE_EXPORT __attribute__((visibility("default")))

#endif
