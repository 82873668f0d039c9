// Marks a procedure whose loops the compiler shall make once for every generation of the vector
// unit; the fitting one is chosen when the program starts. The results are the same to the bit. The
// choice is made before the sanitizers are ready, so they get one version alone.
#pragma once

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define VANTORA_VECTOR_UNIT \
  [[gnu::target_clones("arch=x86-64-v4", "arch=x86-64-v3", "default"), gnu::noinline]]
#else
#define VANTORA_VECTOR_UNIT
#endif
