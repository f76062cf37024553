// Counting of the memory that the values of one interpreter hold.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>

namespace lisp {

// Raises Error when what is alive would exceed the limit, so that a program which grows a list for
// ever ends with a message. It lives until its interpreter and the last of its values are gone.
class Heap {
  public:
    explicit Heap(std::size_t limit) : limit_(limit) {}
    void Take(std::size_t bytes);
    void CheckRoom(std::size_t bytes) const;  // for a text that is about to be built
    void Give(std::size_t bytes);             // may delete the heap
    void Abandon();                           // the interpreter is gone; may delete the heap
    std::size_t Limit() const { return limit_; }

    // Lifts the limit for its own life. For reading what the host wants to be evaluated: memory
    // that is full must not keep the user from setting a variable to nil.
    class Lifted {
      public:
        explicit Lifted(Heap& heap) : heap_(heap), before_(heap.lifted_) { heap.lifted_ = true; }
        ~Lifted() { heap_.lifted_ = before_; }

      private:
        Heap& heap_;
        const bool before_;
    };

  private:
    ~Heap() = default;

    std::size_t limit_;
    std::size_t alive_ = 0;
    bool lifted_ = false;
    bool abandoned_ = false;
};

// What all counted objects begin with.
struct Node {
    union {
        std::uint64_t references = 1;
        Node* next;  // of the list of dead pairs while they are freed
    };
    Heap* heap = nullptr;  // null for a value made by the host
};

// For the vectors of an evaluation: argument lists of a deep recursion add up as lists do.
template <class T>
struct CountingAllocator {
    using value_type = T;

    explicit CountingAllocator(Heap& heap) : heap(&heap) {}
    template <class U>
    CountingAllocator(const CountingAllocator<U>& other) : heap(other.heap) {}

    T* allocate(std::size_t count) {
        heap->Take(count * sizeof(T));
        try {
            return std::allocator<T>().allocate(count);
        } catch (...) {
            heap->Give(count * sizeof(T));
            throw;
        }
    }
    void deallocate(T* items, std::size_t count) {
        std::allocator<T>().deallocate(items, count);
        heap->Give(count * sizeof(T));
    }
    bool operator==(const CountingAllocator& other) const { return heap == other.heap; }

    Heap* heap;
};

}  // namespace lisp
