// Marks a function that the compiler generates once for each generation of vector units. The
// program chooses the version for its processor when it starts. All versions give identical
// results. Not used with sanitizers: the choice happens before they are initialised.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VANTORA_VECTOR_UNIT \
  [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), gnu::noinline]]
#else
#define VANTORA_VECTOR_UNIT
#endif
