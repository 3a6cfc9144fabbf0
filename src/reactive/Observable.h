#pragma once

// The whole of streams but subjects and the operators that join several: include this one.
#include "reactive/Creating.h"
#include "reactive/ObservableType.h"
#include "reactive/Traits.h"
#include "reactive/operators/Elementwise.h"
#include "reactive/operators/Flattening.h"
#include "reactive/operators/Retry.h"
#include "reactive/operators/Scheduling.h"
#include "reactive/operators/Timing.h"
