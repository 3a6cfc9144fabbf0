#pragma once

/// Exports a symbol from the shared library; all other symbols are hidden.
#define ORRELO_EXPORT __attribute__((visibility("default")))
