/* The allocator by itself; both headers are found. */
#include <rvncore.h>
#include <rvngenmx.h>

int main(void)
{
    const RvnStatus status = RvnStatusNoError;
    void* const block = rvnMalloc(100);
    rvnFree(block);
    return block != 0 ? status : 1;
}
