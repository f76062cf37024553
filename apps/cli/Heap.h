// The heap that threads which have ended left behind.
#pragma once

namespace cli {

// The heap has a part for each thread, and uses what one has freed for that thread alone: this one
// takes over the parts of those that have ended. Does nothing where a sanitizer has brought a heap
// of its own.
void TakeOverHeaps();

}  // namespace cli
