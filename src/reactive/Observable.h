#pragma once

// Includes all of the streams library except subjects (Subjects.h) and the operators that combine several
// streams (Combining.h).
#include "reactive/Creating.h"
#include "reactive/ObservableType.h"
#include "reactive/Traits.h"
#include "reactive/operators/Elementwise.h"
#include "reactive/operators/Flattening.h"
#include "reactive/operators/Retry.h"
#include "reactive/operators/Scheduling.h"
#include "reactive/operators/Timing.h"
