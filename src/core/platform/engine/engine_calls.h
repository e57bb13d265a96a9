#pragma once

namespace lorvan {

/// Has the engine open its files as we open ours: plain files alone, never through a link; and has it notice every
/// folder that the disk does not confirm; and has its reading end where a StoppableReading is stopped. Once for the
/// process, before the first connection; asking again is free.
void installEngineCalls();

} // namespace lorvan
