// ValueObject measurements: the visibility of the public names.
//
// As `VARNIX_VALUE_EXPORT` in <varnix/value/export.h>, for the companion library.

#ifndef VARNIX_VALUE_MEASUREMENT_EXPORT_H
#define VARNIX_VALUE_MEASUREMENT_EXPORT_H

/// Marks a declaration as part of the companion's public binary interface. It has no effect on a
/// static library.
#define VARNIX_VALUE_MEASUREMENT_EXPORT __attribute__((visibility("default")))

#endif
