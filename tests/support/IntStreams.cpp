#include "support/IntStreams.h"

template class orrelo::reactive::Observable<int>;
template class orrelo::reactive::SerialGate<int>;
template class orrelo::reactive::SubjectCore<int>;
template class orrelo::reactive::Subject<int>;
template class orrelo::reactive::Subscriber<int>;
