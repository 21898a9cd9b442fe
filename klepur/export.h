// Marks what the shared library exports; everything else in it is hidden.
#ifndef KLEPUR_EXPORT_H
#define KLEPUR_EXPORT_H

#define KLEPUR_EXPORT __attribute__((visibility("default")))

#endif
