#pragma once

namespace zelta::Memory {

/// Lets all threads allocate from one heap, where the C library has more: ours do little besides the
/// window's, and each further heap holds free room of its own. Before the first thread.
void useOneHeap();

/// Gives back to the system what is allocated no more, as after the start, which needs much for a moment.
void giveBack();

} // namespace zelta::Memory
