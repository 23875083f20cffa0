#pragma once

namespace platform {

/// Whether someone traces this program and wants to see its debug output. Asks the system at most once a second; in
/// between it costs a look at the clock. Any thread.
bool IsDebuggerAttached();

} // namespace platform
