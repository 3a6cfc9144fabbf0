#pragma once

namespace orrelo {

/// Gives the calling thread a table of file descriptors of its own, which children that other threads fork do
/// not inherit, so that they hold no lock on its files. Changes nothing where the system does not permit it.
void separateDescriptors();

}  // namespace orrelo
