#pragma once

/// Marks what the shared libraries show; everything else stays hidden.
#if defined(_WIN32)
#define FENVIS_EXPORT __declspec(dllexport)
#else
#define FENVIS_EXPORT __attribute__((visibility("default")))
#endif
