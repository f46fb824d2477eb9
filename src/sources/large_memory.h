// Memory for what is as large as an inventory: in large pages, where the system has them.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <new>
#include <sys/mman.h>

namespace korvex {

/// An allocator. The system hands memory out page by page when it is first written to; for the hundred megabytes of a
/// large inventory that takes a fifth of the time of a load, and nearly none in pages of two megabytes.
template <class T>
struct LargeMemory {
    using value_type = T;  // NOLINT(readability-identifier-naming): the library asks for this name

    LargeMemory() = default;
    template <class U>
    LargeMemory(const LargeMemory<U>& /*other*/)  // NOLINT(google-explicit-constructor): allocators convert
    {
    }

    [[nodiscard]] T* allocate(std::size_t count)
    {
        const std::size_t size = count * sizeof(T);
        if (size < smallestLarge)
            return static_cast<T*>(::operator new(size));
        void* const memory = std::aligned_alloc(pageSize, (size + pageSize - 1) / pageSize * pageSize);
        if (memory == nullptr)
            throw std::bad_alloc();
        // A wish: without large pages all is as before.
        static_cast<void>(madvise(memory, size, MADV_HUGEPAGE));
        return static_cast<T*>(memory);
    }
    void deallocate(T* memory, std::size_t count)
    {
        if (count * sizeof(T) < smallestLarge)
            ::operator delete(memory);
        else
            std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc): what was aligned is freed so
    }

    friend bool operator==(const LargeMemory& /*a*/, const LargeMemory& /*b*/) { return true; }

private:
    static constexpr std::size_t pageSize = std::size_t{1} << 21;
    static constexpr std::size_t smallestLarge = pageSize;
};

}  // namespace korvex
