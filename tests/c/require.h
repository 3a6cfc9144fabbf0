#pragma once

#include <orrelo/orrelo_values_c.h>

#include <stdio.h>
#include <stdlib.h>

static inline void require(orrelo_status expected, orrelo_status status, const char* call) {
  if (status == expected) return;
  fprintf(stderr, "%s: %s, not %s: %s\n", call, orrelo_status_text(status), orrelo_status_text(expected),
          orrelo_last_error());
  exit(1);
}
#define OK(call) require(ORRELO_OK, call, #call)
