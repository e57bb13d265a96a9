#pragma once

namespace lorvan {

/// Makes the engine open its files as we open ours: only plain files, never through a link. It also makes the engine
/// notice folders that the disk does not confirm, and end its reading when a StoppableReading is stopped. Takes effect
/// once for the process, before the first connection; further calls do nothing.
void installEngineCalls();

} // namespace lorvan
