#pragma once

#include "reactive/Observable.h"
#include "reactive/Subjects.h"

// The streams that most tests of streams use, compiled once, in IntStreams.cpp.
extern template class orrelo::reactive::Observable<int>;
extern template class orrelo::reactive::SerialGate<int>;
extern template class orrelo::reactive::SubjectCore<int>;
extern template class orrelo::reactive::Subject<int>;
extern template class orrelo::reactive::Subscriber<int>;
