#pragma once

namespace orrelo::quick {

/// Loads the inspector, a library beside this one, if the environment has ORRELO_INSPECTOR=1 and the process
/// has no rights of another user. An inspector that is not installed is explained. Once per process, on the
/// GUI thread.
void loadInspector();

}  // namespace orrelo::quick
