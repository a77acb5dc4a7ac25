/// \file
/// CORVANE_EXPORT marks what libcorvane.so and the component module export.
/// The libraries are built with hidden visibility; only what carries this mark
/// is part of their binary interface.
#ifndef CORVANE_EXPORT_H_
#define CORVANE_EXPORT_H_

#if defined(__GNUC__) || defined(__clang__)
/// Gives a class or function default visibility: it is exported.
#define CORVANE_EXPORT __attribute__((visibility("default")))
#else
#define CORVANE_EXPORT
#endif

#endif  // CORVANE_EXPORT_H_
