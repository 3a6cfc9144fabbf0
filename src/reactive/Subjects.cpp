#include "reactive/Subjects.h"

namespace orrelo::reactive {

template class SerialGate<Unit>;
template class SubjectCore<Unit>;
template class Subject<Unit>;
template class Subscriber<Unit>;

}  // namespace orrelo::reactive
