// Freed memory that goes back to the system at once.
#pragma once

namespace cli {

// While it lives. Else the heap keeps what was freed for a while; where one piece of work frees
// much and the next takes much, the peak would be a matter of luck.
class PromptHeap {
  public:
    PromptHeap();
    ~PromptHeap();
    PromptHeap(const PromptHeap&) = delete;
    PromptHeap& operator=(const PromptHeap&) = delete;

  private:
    const long delay;
};

}  // namespace cli
