#pragma once

namespace orrelo {

/// Gives the calling thread a table of file descriptors of its own, which children that other threads fork do
/// not inherit, so that they hold no lock on its files. Changes nothing where the system does not permit it.
void separateDescriptors();

/// Whether the calling thread has a table of its own. A thread that it started would share that table.
bool hasSeparateDescriptors();

}  // namespace orrelo
