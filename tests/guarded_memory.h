// Memory that may be touched between two pages that may not: an access outside an array that stands
// against either end of it ends the test.
#pragma once

#include <cstddef>
#include <new>

#include <sys/mman.h>

namespace rvn::tests
{

class GuardedMemory
{
public:
    // Room for at least `capacity` bytes: whole pages.
    explicit GuardedMemory(std::size_t capacity)
        : size_((capacity + page - 1) / page * page),
          begin_(mmap(nullptr, size_ + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        if (begin_ == MAP_FAILED || mprotect(first(), size_, PROT_READ | PROT_WRITE) != 0)
            throw std::bad_alloc();
    }

    ~GuardedMemory() { munmap(begin_, size_ + 2 * page); }

    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;

    std::size_t size() const { return size_; }
    std::byte* first() const { return static_cast<std::byte*>(begin_) + page; }

    // Where count bytes stand against the beginning or against the end of the memory.
    std::byte* place(std::size_t count, bool atEnd) const
    {
        return atEnd ? first() + size_ - count : first();
    }

    // An address that is not null and must not be used.
    template <typename T> T* untouchable() const { return static_cast<T*>(begin_); }

private:
    static constexpr std::size_t page = 4096;

    std::size_t size_;
    void* begin_;
};

} // namespace rvn::tests
