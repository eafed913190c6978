// One page that may be touched between two that may not: an access outside an array that stands
// against either end of it ends the test.
#pragma once

#include <cstddef>
#include <new>

#include <sys/mman.h>

namespace rvn::tests
{

class GuardedPage
{
public:
    static constexpr std::size_t size = 4096;

    GuardedPage() : begin_(mmap(nullptr, 3 * size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        if (begin_ == MAP_FAILED || mprotect(first(), size, PROT_READ | PROT_WRITE) != 0)
            throw std::bad_alloc();
    }

    ~GuardedPage() { munmap(begin_, 3 * size); }

    GuardedPage(const GuardedPage&) = delete;
    GuardedPage& operator=(const GuardedPage&) = delete;

    std::byte* first() const { return static_cast<std::byte*>(begin_) + size; }

    // Where count bytes stand against the beginning or against the end of the page.
    std::byte* place(std::size_t count, bool atEnd) const
    {
        return atEnd ? first() + size - count : first();
    }

    // An address that is not null and must not be used.
    template <typename T> T* untouchable() const { return static_cast<T*>(begin_); }

private:
    void* begin_;
};

} // namespace rvn::tests
